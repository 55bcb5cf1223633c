#include "platform/TextForm.h"

#include "engine/CodePage.h"
#include <QRandomGenerator>
#include <QTest>

Q_DECLARE_METATYPE(TextForm)

namespace {

using enum TextCoding;

QString withLf(QString text)
{
    return text.replace(u"\r\n"_qs, u"\n"_qs).replace(u'\r', u'\n');
}

} // namespace

class tst_TextForm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void decodes_data();
    void decodes();
    void encodes_data();
    void encodes();
    void savedAsOpened_data();
    void savedAsOpened();
    void everyTextReadsBack();
    void everyByteOfTheCodePageReadsBack();
};

void tst_TextForm::decodes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::addColumn<TextForm>("form");
    const TextForm target{CodePage1252, LineEnds::CrLf};
    QTest::newRow("empty") << QByteArray() << QString() << target;
    QTest::newRow("ASCII") << QByteArray("abc") << u"abc"_qs << target;
    QTest::newRow("ASCII lines") << QByteArray("a\nb") << u"a\nb"_qs
                                 << TextForm{CodePage1252, LineEnds::Lf};
    QTest::newRow("UTF-8") << QByteArray("é\r\n") << u"é\r\n"_qs << TextForm{Utf8, LineEnds::CrLf};
    QTest::newRow("UTF-8 with mark") << QByteArray("\xEF\xBB\xBF") + "abc\r" << u"abc\r"_qs
                                     << TextForm{Utf8WithMark, LineEnds::Cr};
    QTest::newRow("UTF-16") << QByteArray("\xFF\xFE"
                                          "a\0\n\0",
                                          6)
                            << u"a\n"_qs << TextForm{Utf16LittleEndian, LineEnds::Lf};
    QTest::newRow("UTF-16, big end first") << QByteArray("\xFE\xFF"
                                                         "\0a\0\n",
                                                         6)
                                           << u"a\n"_qs << TextForm{Utf16BigEndian, LineEnds::Lf};
    QTest::newRow("code page") << QByteArray("caf\xE9 \x80\x81\xAD") << u"café €\x81\xAD"_qs
                               << target;
    QTest::newRow("UTF-8 cut short") << QByteArray("caf\xC3") << u"cafÃ"_qs << target;
    QTest::newRow("UTF-8 with mark, malformed")
        << QByteArray("\xEF\xBB\xBF\xFF") << u"ï»¿ÿ"_qs << target;
    QTest::newRow("mixed line ends") << QByteArray("a\r\nb\nc\rd") << u"a\r\nb\nc\rd"_qs << target;
    QTest::newRow("soft line break") << QByteArray("a\vb\fc") << u"a\vb\fc"_qs << target;
}

void tst_TextForm::decodes()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    QFETCH(TextForm, form);
    const DecodedText decoded = decodeText(bytes, {CodePage1252, LineEnds::CrLf});
    QCOMPARE(decoded.text, text);
    QCOMPARE(decoded.form, form);
}

void tst_TextForm::encodes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<TextForm>("form");
    QTest::addColumn<QByteArray>("bytes");
    const TextForm page{CodePage1252, LineEnds::CrLf};
    QTest::newRow("code page") << u"\xADé€\r\n"_qs << page << QByteArray("\xAD\xE9\x80\r\n");
    QTest::newRow("UTF-8") << u"é\r\nx"_qs << TextForm{Utf8, LineEnds::Lf} << QByteArray("é\nx");
    QTest::newRow("any line ends") << u"a\nb\rc\r\nd\n\re"_qs << TextForm{Utf8, LineEnds::CrLf}
                                   << QByteArray("a\r\nb\r\nc\r\nd\r\n\r\ne");
    QTest::newRow("outside the code page")
        << u"é\u0160\u0161ŵ"_qs << page << QByteArray("\xEF\xBB\xBF") + "éŠšŵ";
    QTest::newRow("page bytes that are UTF-8")
        << u"Ã©"_qs << page << QByteArray("\xEF\xBB\xBF") + "Ã©";
    QTest::newRow("page bytes that are a mark")
        << u"ÿþa"_qs << page << QByteArray("\xEF\xBB\xBF") + "ÿþa";
    QTest::newRow("text that begins with a mark")
        << u"\uFEFFa"_qs << TextForm() << QByteArray("\xEF\xBB\xBF\xEF\xBB\xBF") + "a";
    QTest::newRow("UTF-16") << u"a\n"_qs << TextForm{Utf16BigEndian, LineEnds::Cr}
                            << QByteArray("\xFE\xFF"
                                          "\0a\0\r",
                                          6);
}

void tst_TextForm::encodes()
{
    QFETCH(QString, text);
    QFETCH(TextForm, form);
    QFETCH(QByteArray, bytes);
    QCOMPARE(encodeText(text, form), bytes);
}

void tst_TextForm::savedAsOpened_data()
{
    QTest::addColumn<QByteArray>("bytes");
    for (const QByteArray &end : {QByteArray("\r\n"), QByteArray("\n"), QByteArray("\r")}) {
        const auto row = [&](const char *coding, const QByteArray &bytes) {
            QTest::newRow((coding + (" " + end.toHex())).constData()) << bytes;
        };
        row("ASCII", "a" + end + "b" + end);
        row("UTF-8", "é" + end + "😀" + end);
        row("UTF-8 with mark", "\xEF\xBB\xBF" + end + "é");
        row("UTF-8 with mark, malformed", "\xEF\xBB\xBF" + end + "\xFF");
        row("code page", "\xE9" + end + "\x81\xAD\xA0");
    }
}

void tst_TextForm::savedAsOpened()
{
    QFETCH(QByteArray, bytes);
    for (const TextCoding coding : {Utf8, CodePage1252, Utf16BigEndian}) {
        const DecodedText decoded = decodeText(bytes, {coding, LineEnds::CrLf});
        QCOMPARE(encodeText(decoded.text, decoded.form), bytes);
    }
}

void tst_TextForm::everyTextReadsBack()
{
    const auto seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    const QString pieces = u"aÃ©€ÿþï»¿\uFEFF\r\n\n\v\f\xA0\xAD\x81ŵ"_qs + QChar(0) + QChar(0xD800);
    for (int round = 0; round < 5000; ++round) {
        QString text;
        for (int i = random.bounded(8); i > 0; --i)
            text += pieces[random.bounded(int(pieces.size()))];
        const TextForm form{TextCoding(random.bounded(5)), LineEnds(random.bounded(3))};
        const DecodedText back = decodeText(encodeText(text, form), {});
        QCOMPARE(withLf(back.text), withLf(text));
    }
}

void tst_TextForm::everyByteOfTheCodePageReadsBack()
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += char(byte);
    bytes.replace("\r", "").replace("\n", "");
    const DecodedText decoded = decodeText(bytes, {});
    QCOMPARE(decoded.form.coding, CodePage1252);
    QCOMPARE(encodeText(decoded.text, decoded.form), bytes);
}

QTEST_APPLESS_MAIN(tst_TextForm)
#include "tst_textform.moc"
