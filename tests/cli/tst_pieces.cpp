#include "cli/LineBreaks.h"
#include "cli/NfcPieces.h"
#include "cli/Utf8Pieces.h"

#include <QTest>

class tst_Pieces : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void utf8AtEveryCut();
    void utf8Faults_data();
    void utf8Faults();
    void compositionAtEveryCut();
    void compositionIsBounded();
    void lineBreaksAtEveryCut();
    void lineBreaksThatRulesTookApart();
};

void tst_Pieces::utf8AtEveryCut()
{
    const QString text = u"aé€😀\uFFFD\uFFFEz"_qs;
    const QByteArray bytes = "\xEF\xBB\xBF" + text.toUtf8();
    for (qsizetype cut = 0; cut <= bytes.size(); ++cut) {
        Utf8Pieces pieces;
        QString result = pieces.feed(QByteArrayView(bytes).first(cut));
        result += pieces.feed(QByteArrayView(bytes).sliced(cut));
        pieces.finish();
        QCOMPARE(result, text);
        QVERIFY(!pieces.fault());
    }
}

void tst_Pieces::utf8Faults_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<qint64>("fault");
    QTest::newRow("stray continuation") << QByteArray("ab\x80") << qint64{2};
    QTest::newRow("code page 1252") << QByteArray("caf\xE9 au lait") << qint64{3};
    QTest::newRow("overlong") << QByteArray("\xC0\x80") << qint64{0};
    QTest::newRow("overlong, three bytes") << QByteArray("a\xE0\x80\x80") << qint64{1};
    QTest::newRow("overlong, four bytes") << QByteArray("a\xF0\x80\x80\x80") << qint64{1};
    QTest::newRow("surrogate") << QByteArray("\xED\xA0\x80") << qint64{0};
    QTest::newRow("beyond Unicode") << QByteArray("\xF4\x90\x80\x80") << qint64{0};
    QTest::newRow("cut short") << QByteArray("abc\xE2\x82") << qint64{3};
    QTest::newRow("second byte missing") << QByteArray("\xE2(\xA1") << qint64{0};
    QTest::newRow("third byte missing") << QByteArray("é\xE2\x82(") << qint64{2};
}

void tst_Pieces::utf8Faults()
{
    QFETCH(QByteArray, bytes);
    QFETCH(qint64, fault);
    for (qsizetype cut = 0; cut <= bytes.size(); ++cut) {
        Utf8Pieces pieces;
        static_cast<void>(pieces.feed(QByteArrayView(bytes).first(cut)));
        static_cast<void>(pieces.feed(QByteArrayView(bytes).sliced(cut)));
        pieces.finish();
        QCOMPARE(pieces.fault(), fault);
    }
}

void tst_Pieces::compositionAtEveryCut()
{
    const QString text = u"e\u0301a u\u0308\u0304 😀\u0301 \u1112\u1161\u11AB o\u0302\nn\u0303"_qs;
    const QString composed = text.normalized(QString::NormalizationForm_C);
    for (qsizetype cut = 0; cut <= text.size(); ++cut) {
        NfcPieces pieces;
        QString result = pieces.feed(QStringView(text).first(cut));
        result += pieces.feed(QStringView(text).sliced(cut));
        result += pieces.finish();
        QCOMPARE(result, composed);
    }
}

void tst_Pieces::compositionIsBounded()
{
    NfcPieces pieces;
    qsizetype given = 0;
    const QString piece = QStringView(u"語😀").toString().repeated(10000);
    for (int i = 0; i < 20; ++i)
        given += pieces.feed(piece).size();
    QCOMPARE_GT(given, 15 * piece.size());
    QCOMPARE(given + pieces.finish().size(), 20 * piece.size());
}

namespace {

/// Unifies and restores `text` in two pieces, with every unified character passed on or put out as
/// a rule would.
QString throughLineBreaks(const QString &text, qsizetype cut)
{
    LineBreaks breaks;
    QString output;
    qint64 position = 0;
    const auto pass = [&](const QString &unified) {
        for (const QChar &character : unified) {
            const auto kind = character < u' ' ? Step::Kind::ControlCharacter : Step::Kind::Rule;
            breaks.restore(kind, position++, QStringView(&character, 1), output);
        }
    };
    pass(breaks.unify(QStringView(text).first(cut)));
    pass(breaks.unify(QStringView(text).sliced(cut)));
    pass(breaks.finishUnifying());
    breaks.finishRestoring(output);
    return output;
}

} // namespace

void tst_Pieces::lineBreaksAtEveryCut()
{
    const QString text = u"a\nb\r\nc\rd\n\ne\r\re\n\rf\t\r\n\r\n"_qs;
    for (const QString &whole : {text, text + u'\r', text + u"end"_qs}) {
        for (qsizetype cut = 0; cut <= whole.size(); ++cut)
            QCOMPARE(throughLineBreaks(whole, cut), whole);
    }
}

void tst_Pieces::lineBreaksThatRulesTookApart()
{
    LineBreaks breaks;
    QCOMPARE(breaks.unify(u"a\nb\nc"), u"a\r\nb\r\nc"_qs);
    QString output;
    breaks.restore(Step::Kind::Rule, 0, u"x", output); // a rule took "a" and the CR
    breaks.restore(Step::Kind::ControlCharacter, 2, u"\n", output);
    breaks.restore(Step::Kind::Rule, 3, u"y", output);
    breaks.restore(Step::Kind::ControlCharacter, 4, u"\r", output);
    breaks.restore(Step::Kind::Rule, 5, u"z", output); // a rule took the LF and "c"
    breaks.finishRestoring(output);
    QCOMPARE(output, u"x\ny\rz"_qs);
}

QTEST_APPLESS_MAIN(tst_Pieces)
#include "tst_pieces.moc"
