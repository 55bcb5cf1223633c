#include "rtf/DocumentDump.h"
#include "rtf/RtfReader.h"
#include "rtf/RtfWriter.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTest>
#include <QTextDocument>

namespace {

/// Gives some bytes, then fails.
class FailingDevice final : public QIODevice
{
public:
    FailingDevice() { open(ReadOnly); }

    bool atEnd() const override { return false; }

protected:
    qint64 readData(char *data, qint64) override
    {
        if (given_)
            return -1;
        given_ = true;
        qstrncpy(data, "{\\rtf1 x", 9);
        return 8;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    bool given_ = false;
};

QByteArray file(const QByteArray &body)
{
    return "{\\rtf1\\ansi{\\fonttbl{\\f0\\fcharset0 Sans;}}" + body;
}

} // namespace

/// Files that are broken, or meant to break a reader.
class tst_RtfDamaged : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsText_data()
    {
        QTest::addColumn<QByteArray>("rtf");
        QTest::addColumn<QString>("text");
        const auto row = [](const char *name, const QByteArray &rtf, const char16_t *text) {
            QTest::newRow(name) << rtf << QString::fromUtf16(text);
        };
        row("unterminated group", file("{\\b a"), u"a");
        row("unterminated word", file("a\\par"), u"a");
        row("ends in a backslash", file("a\\"), u"a");
        row("ends in an escape", file("a\\'"), u"a");
        row("ends in half an escape", file("a\\'e"), u"a");
        row("no hexadecimal digits", file("a\\'zzb\\'4yc}"), u"azzbyc");
        row("a brace too many", file("a}b\\par c}"), u"ab\nc");
        row("rubbish after the end", file("a}garbage"), u"a");
        row("NULs after the end", file("a}") + QByteArray(100, '\0'), u"a");
        row("NULs within", file(QByteArray("a\0b", 3) + "}"), u"ab");
        row("byte order mark and white space", "\xEF\xBB\xBF\r\n " + file("a}"), u"a");
        row("a very long word", file("a\\" + QByteArray(100'000, 'q') + " b}"), u"ab");
        row("binary data that is missing", file("a\\bin2147483647 xyz"), u"a");
        row("binary data of a negative length", file("a\\bin-5 xyz}"), u"axyz");
        row("numbers without end", file("a\\u" + QByteArray(1000, '9') + "?b\\fs99999999999 c}"),
            u"a\uFFFDbc");
        row("no font table", "{\\rtf1 \\f7 caf\\'e9}", u"caf\u00E9");
        row("an unknown code page", "{\\rtf1\\ansicpg31337 caf\\'e9}", u"caf\u00E9");
        row("a destination for the whole document", "{\\rtf1\\info a\\par b}", u"a\nb");
        row("an open font table", "{\\rtf1{\\fonttbl{\\f0 Sans;} a", u"");
        row("only braces", "{\\rtf1" + QByteArray(1000, '}'), u"");
        row("frame markers", file("a\\u-560?\\u-559?b\\u8233?c\\u13?d}"), u"a\uFFFD\uFFFDb\nc\nd");
        row("version and case", "{\\rtf99\\ANSI\\B a\\PAR b}", u"ab");
    }

    void keepsText()
    {
        QFETCH(const QByteArray, rtf);
        QTextDocument document;
        QVERIFY(!readRtf(rtf, document));
        QTEST(document.toPlainText(), "text");
    }

    void refuses_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("text") << QByteArray("text");
        QTest::newRow("another group") << QByteArray("{\\rt1 text}");
        QTest::newRow("RTF later on") << QByteArray("text {\\rtf1 text}");
        QTest::newRow("UTF-16") << QByteArray("{\0\\\0r\0t\0f\0", 10);
    }

    void refuses()
    {
        QFETCH(const QByteArray, bytes);
        QTextDocument document(QStringLiteral("before"));
        QCOMPARE(readRtf(bytes, document), (RtfError{RtfError::What::NotRtf, 0}));
        QCOMPARE(document.toPlainText(), QStringLiteral("before"));
        QVERIFY(!looksLikeRtf(bytes));
    }

    void saysWhereItIsTooLarge()
    {
        const QByteArray start = "{\\rtf1 ";
        const QByteArray rtf = start + QByteArray(RtfLimits::characters + 5000, 'x');
        QString text;
        const auto error = readRtfText(rtf, text);
        QVERIFY(error);
        QCOMPARE(error->what, RtfError::What::TooLarge);
        QVERIFY(error->byteOffset > RtfLimits::characters);
        QVERIFY(error->byteOffset <= rtf.size());
        const auto pieces =
            readRtfText(start + QByteArray("\\par").repeated(RtfLimits::pieces + 9), text);
        QVERIFY(pieces);
        QCOMPARE(pieces->what, RtfError::What::TooLarge);
    }

    void readsDevices()
    {
        QByteArray rtf = file("text}");
        QBuffer buffer(&rtf);
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        QTextDocument document;
        QVERIFY(!readRtf(buffer, document));
        QCOMPARE(document.toPlainText(), QStringLiteral("text"));
        FailingDevice failing;
        QCOMPARE(readRtf(failing, document), (RtfError{RtfError::What::ReadFailed, 8}));
        QCOMPARE(document.toPlainText(), QStringLiteral("text"));
    }

    void isQuick_data()
    {
        QTest::addColumn<QByteArray>("rtf");
        constexpr qsizetype many = 200'000;
        const auto fonts = [] {
            QByteArray table("{\\rtf1{\\fonttbl");
            for (int i = 0; i < 100'000; ++i)
                table += "{\\f" + QByteArray::number(i) + " F" + QByteArray::number(i) + ";}";
            return table + "}\\f99999 text}";
        };
        QTest::newRow("deep groups") << file(QByteArray(many, '{') + "text");
        QTest::newRow("deep groups with words")
            << file(QByteArray("{\\b ").repeated(many) + "text");
        QTest::newRow("deep unknown groups") << file(QByteArray("{\\*\\x").repeated(many));
        QTest::newRow("deep footnotes") << file(QByteArray("{\\footnote x").repeated(many));
        QTest::newRow("deep fields") << file(QByteArray("{\\field{\\fldrslt x").repeated(many));
        QTest::newRow("fonts") << fonts();
        QTest::newRow("tab stops") << file(QByteArray("\\tx100").repeated(many) + " text}");
        QTest::newRow("paragraphs") << file(QByteArray("x\\par ").repeated(many));
        QTest::newRow("cells") << file(QByteArray("\\cell").repeated(many) + "\\row}");
        QTest::newRow("bullets") << file(
            QByteArray("\\pard{\\pntext x}{\\*\\pn\\pnlvlblt}x\\par\\pard y\\par")
                .repeated(20'000));
        QTest::newRow("braces to close") << file(QByteArray(many, '}') + "\\par");
        QTest::newRow("labels") << file(QByteArray("{\\listtext x}").repeated(many) + "y}");
        QTest::newRow("fallbacks") << file(QByteArray("\\u945 ?").repeated(many));
        QTest::newRow("a long line") << file(QByteArray(5'000'000, 'x') + "}");
        QTest::newRow("nothing") << file(QByteArray(20'000'000, '\0'));
        QTest::newRow("empty groups") << file(QByteArray("{}").repeated(5'000'000));
        QTest::newRow("a picture") << file("{\\pict " + QByteArray(20'000'000, '0') + "}text}");
    }

    void isQuick()
    {
        QFETCH(const QByteArray, rtf);
        QElapsedTimer timer;
        timer.start();
        QTextDocument document;
        QVERIFY(!readRtf(rtf, document));
        // Many times what it takes, so that a slow machine passes; quadratic time never would.
        QVERIFY2(timer.elapsed() < 10'000, qPrintable(QString::number(timer.elapsed())));
    }

    void noise()
    {
        const quint32 seed = QRandomGenerator::global()->generate();
        qInfo("seed %u", seed);
        QRandomGenerator random(seed);
        static const QByteArray pieces[] = {"{",
                                            "}",
                                            "\\",
                                            "\\*",
                                            "\\u",
                                            "-10179",
                                            "\\bin",
                                            "9",
                                            " ",
                                            "\\par",
                                            "\\cell",
                                            "\\row",
                                            "\\intbl",
                                            "\\trowd",
                                            "{\\field",
                                            "{\\fldrslt",
                                            "{\\fldinst SYMBOL 65",
                                            "{\\footnote",
                                            "{\\listtext",
                                            "{\\upr",
                                            "{\\*\\ud",
                                            "\\'83",
                                            "\\'",
                                            "A",
                                            "\\f1",
                                            "\\ls1",
                                            "\\pn",
                                            "{\\fonttbl{\\f1\\fcharset128 X;}}",
                                            "{\\shptxt",
                                            "\\uc2",
                                            "\\pard",
                                            "\\plain",
                                            "\\tx7"};
        for (int round = 0; round < 2000; ++round) {
            QByteArray rtf("{\\rtf1");
            for (int length = random.bounded(60); length > 0; --length) {
                if (random.bounded(8) == 0)
                    rtf += static_cast<char>(random.bounded(256));
                else
                    rtf += pieces[random.bounded(int(std::size(pieces)))];
            }
            QTextDocument document;
            QVERIFY(!readRtf(rtf, document));
            QTextDocument again;
            QVERIFY(!readRtf(writeRtf(document), again));
            QVERIFY2(dump(again) == dump(document), rtf.toPercentEncoding().constData());
        }
    }
};

QTEST_MAIN(tst_RtfDamaged)
#include "tst_rtfdamaged.moc"
