#include "engine/RuntimeError.h"
#include "engine/TranscribeText.h"

#include <QTest>

namespace {

/// A rule: roman text, Tengwar text, following and preceding condition, tag left.
using Rule = std::array<const char *, 5>;

ModeTable tableOf(std::initializer_list<Rule> rules, qint16 caseMode = 0)
{
    ModeTable table;
    table.CaseMode = caseMode;
    for (const auto &[roman, tengwar, following, preceding, leaves] : rules)
        table.appendRule(QString::fromUtf8(roman), QString::fromUtf8(tengwar),
                         QString::fromUtf8(following), QString::fromUtf8(preceding),
                         QString::fromUtf8(leaves));
    return table;
}

ModeTable exampleTable()
{
    return tableOf({{"th", "A", "", "", "th"},
                    {"t", "B", "", "", "t"},
                    {"e", "C", "\r", "", "e"},
                    {"e", "D", "", "", "e"},
                    {" ", " ", "", "", " "}});
}

} // namespace

class tst_TranscribeText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void example();
    void results_data();
    void results();
    void textBecomesItsFoldedCopy();
    void lengthIsLimited();
    void numberOfRulesIsLimited();
    void progressAndYields();
    void abortReturnsWhatIsDone();
    void alert_data();
    void alert();
};

void tst_TranscribeText::example()
{
    TranscriptionContext context;
    context.UndefinedText = u"?"_qs;
    context.UndefinedAlert = true;
    QString text = u"The te"_qs;
    QCOMPARE(TranscribeText(text, exampleTable(), context), u"AC BC"_qs);
    QVERIFY(!context.AlertIsDue);
    text = u"The tex"_qs;
    QCOMPARE(TranscribeText(text, exampleTable(), context), u"AC BD?"_qs);
    QVERIFY(context.AlertIsDue);
}

void tst_TranscribeText::results_data()
{
    QTest::addColumn<ModeTable>("table");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("output");

    const auto wide = tableOf({{"t", "1", "", "", ""}, {"th", "2", "", "", ""}});
    QTest::newRow("wider wins though later") << wide << u"tht"_qs << u"21"_qs;
    const auto same = tableOf({{"a", "1", "", "", ""}, {"a", "2", "", "", ""}});
    QTest::newRow("earlier wins at one width") << same << u"a"_qs << u"1"_qs;
    QTest::newRow("empty text") << same << QString() << QString();

    const auto narrow = tableOf({{"th", "2", "x", "", ""}, {"t", "1", "", "", ""}});
    QTest::newRow("narrower when the context fails") << narrow << u"thx tha"_qs << u"2??1??"_qs;

    const auto wordEnd = tableOf({{"a", "E", "\r", "", ""}, {"a", "M", "", "", ""}});
    for (const char16_t next : u",.-!'/ \t"_qs.toStdU16String())
        QTest::addRow("word ends before code %d", next)
            << wordEnd << (u"a"_qs + QChar(next)) << (next == u'\t' ? u"E\t"_qs : u"E?"_qs);
    for (const char16_t next : u"0bZ:\u00FF\u00A0"_qs.toStdU16String())
        QTest::addRow("word goes on before code %d", next)
            << wordEnd << (u"a"_qs + QChar(next)) << u"M?"_qs;
    QTest::newRow("word ends at the end") << wordEnd << u"a"_qs << u"E"_qs;
    QTest::newRow("word goes on before a foreign character") << wordEnd << u"aŷ"_qs << u"M?"_qs;
    QTest::newRow("word goes on before a foreign low code") << wordEnd << u"a\u0080"_qs << u"M?"_qs;

    const auto wordStart = tableOf({{"a", "S", "", "\r", "a"},
                                    {"a", "M", "", "", "a"},
                                    {" ", "_", "", "", " "},
                                    {"-", "-", "", "", "-"},
                                    {"!", "!", "", "", "!"},
                                    {"*", "*", "", "", ""}});
    QTest::newRow("word starts at the start") << wordStart << u"aa"_qs << u"SM"_qs;
    QTest::newRow("word starts after a space's tag") << wordStart << u"a a"_qs << u"S_S"_qs;
    QTest::newRow("word starts after a line break") << wordStart << u"a\r\na"_qs << u"S\r\nS"_qs;
    QTest::newRow("word starts after a TAB") << wordStart << u"a\ta"_qs << u"S\tS"_qs;
    QTest::newRow("word starts after an undefined one") << wordStart << u"axa"_qs << u"S?S"_qs;
    QTest::newRow("word starts after an empty tag") << wordStart << u"a*a"_qs << u"S*S"_qs;
    QTest::newRow("no word starts after a hyphen's tag") << wordStart << u"a-a"_qs << u"S-M"_qs;
    QTest::newRow("no word starts after code 33") << wordStart << u"a!a"_qs << u"S!M"_qs;

    const auto tags = tableOf({{"a", "1", "", "", "x"},
                               {"b", "2", "", "x", "xy"},
                               {"b", "3", "", "xy", ""},
                               {"b", "4", "", "", ""}});
    QTest::newRow("tags are compared whole") << tags << u"abbb"_qs << u"1234"_qs;
    QTest::newRow("tag of a passed control character")
        << tableOf({{"b", "1", "", "\n", ""}, {"b", "2", "", "", ""}}) << u"b\nb\rb"_qs
        << u"2\n1\r2"_qs;

    const auto next = tableOf({{"a", "1", "b", "", ""},
                               {"a", "2", "bc", "", ""},
                               {"a", "3", "", "", ""},
                               {"b", "b", "", "", ""}});
    QTest::newRow("one following character holds") << next << u"ab"_qs << u"1b"_qs;
    QTest::newRow("several never hold")
        << tableOf({{"a", "2", "bc", "", ""}}) << u"abc"_qs << u"???"_qs;

    QTest::newRow("control characters pass") << same << u"\r\n\t\x01"_qs << u"\r\n\t\x01"_qs;
    const auto control = tableOf({{"\r", "R", "", "", ""},
                                  {"\n", "N", "", "", ""},
                                  {"\r\n", "B", "", "", ""},
                                  {"x", "x", "", "", ""}});
    QTest::newRow("a wide rule may begin with a control character")
        << control << u"x\r\nx"_qs << u"xBx"_qs;
    QTest::newRow("a lone control character passes") << control << u"\nx"_qs << u"\nx"_qs;
    QTest::newRow("the last one meets the wider windows") << control << u"x\n"_qs << u"xN"_qs;
    QTest::newRow("but not where the text is one long") << control << u"\n"_qs << u"\n"_qs;

    const auto longest = tableOf({{"aaaaaaaaaaaaaaaa", "16", "", "", ""},
                                  {"aaaaaaaaaaaaaaaaa", "17", "", "", ""},
                                  {"a", "1", "", "", ""}});
    QTest::newRow("windows end at sixteen") << longest << QString(18, u'a') << u"1611"_qs;
    QTest::newRow("empty Tengwar text deletes")
        << tableOf({{"a", "", "", "", ""}}) << u"aa"_qs << QString();
    QTest::newRow("folded") << exampleTable() << u"THE"_qs << u"AC"_qs;
    QTest::newRow("not folded") << tableOf({{"a", "1", "", "", ""}}, 1) << u"aA"_qs << u"1?"_qs;
    QTest::newRow("other case modes give nothing")
        << tableOf({{"a", "1", "", "", ""}}, 2) << u"aax"_qs << QString();
    QTest::newRow("no rules") << ModeTable() << u"abc"_qs << u"???"_qs;
    QTest::newRow("a foreign character matches nothing")
        << tableOf({{"A", "1", "", "", ""}}, 1) << u"\uFF21A"_qs << u"?1"_qs;
    QTest::newRow("a pair of surrogates is one character") << same << u"a😀a"_qs << u"1?1"_qs;
    QTest::newRow("half a pair is one as well") << same << (u"a"_qs + QChar(0xD83D)) << u"1?"_qs;
    QTest::newRow("no rule holds a TAB")
        << tableOf({{"\tb", "1", "", "", ""}, {"ŷb", "2", "", "", ""}, {"b", "b", "", "", ""}})
        << u"\tb\tŷb"_qs << u"\tb\t?b"_qs;
    QTest::newRow("NUL can be matched") << [] {
        ModeTable table;
        table.appendRule(u"a"_qs + QChar(0), u"1"_qs, {}, {}, {});
        return table;
    }() << (u"a"_qs + QChar(0)) << u"1"_qs;
}

void tst_TranscribeText::results()
{
    QFETCH(ModeTable, table);
    QFETCH(QString, text);
    TranscriptionContext context;
    context.UndefinedText = u"?"_qs;
    QTEST(TranscribeText(text, table, context), "output");
}

void tst_TranscribeText::textBecomesItsFoldedCopy()
{
    TranscriptionContext context;
    QString text = u"The TE"_qs;
    static_cast<void>(TranscribeText(text, exampleTable(), context));
    QCOMPARE(text, u"the te"_qs);
}

void tst_TranscribeText::lengthIsLimited()
{
    const auto table = tableOf({{"a", "1", "", "", ""}});
    TranscriptionContext context;
    QString text(maximumTextLength, u'a');
    QCOMPARE(TranscribeText(text, table, context), QString(maximumTextLength, u'1'));
    text += u'a';
    context.Progress = 0.25;
    try {
        static_cast<void>(TranscribeText(text, table, context));
        QFAIL("the text was accepted");
    } catch (const RuntimeError &error) {
        QCOMPARE(error.number(), ErrorNumber::Overflow);
        QCOMPARE(error.message(), u"Run-time error '6':\n\nOverflow"_qs);
        QCOMPARE(context.Progress, 0.25);
    }
}

void tst_TranscribeText::numberOfRulesIsLimited()
{
    ModeTable table;
    for (int i = 0; i < ModeTable::maximumRules; ++i)
        table.appendRule(u"b"_qs, {}, {}, {}, {});
    table.RomanText[ModeTable::maximumRules - 1] = u"a"_qs;
    table.TengwarText[ModeTable::maximumRules - 1] = u"1"_qs;
    TranscriptionContext context;
    QString text = u"a"_qs;
    QCOMPARE(TranscribeText(text, table, context), u"1"_qs);
    table.appendRule(u"c"_qs, {}, {}, {}, {});
    QVERIFY_THROWS_EXCEPTION(RuntimeError, static_cast<void>(TranscribeText(text, table, context)));
}

void tst_TranscribeText::progressAndYields()
{
    TranscriptionContext context;
    QList<double> progress;
    context.Yield = [&] { progress.append(context.Progress); };
    QString text = u"th\nx"_qs;
    static_cast<void>(TranscribeText(text, exampleTable(), context));
    QCOMPARE(progress, QList<double>({0.25, 0.75, 1.0}));

    context.Progress = 0.5;
    text.clear();
    static_cast<void>(TranscribeText(text, exampleTable(), context));
    QCOMPARE(context.Progress, 0.5);
}

void tst_TranscribeText::abortReturnsWhatIsDone()
{
    TranscriptionContext context;
    context.UndefinedAlert = true;
    context.UndefinedText = u"?"_qs;
    int steps = 0;
    context.Yield = [&] { context.AbortRequested = ++steps == 2; };
    QString text = u"txttt"_qs;
    QCOMPARE(TranscribeText(text, exampleTable(), context), u"B?"_qs);
    QVERIFY(!context.AlertIsDue);
    QCOMPARE(context.Progress, 0.6);
}

void tst_TranscribeText::alert_data()
{
    QTest::addColumn<bool>("wanted");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("due");
    QTest::newRow("wanted, two undefined") << true << u"txx"_qs << true;
    QTest::newRow("wanted, none undefined") << true << u"t\n"_qs << false;
    QTest::newRow("not wanted") << false << u"txx"_qs << false;
}

void tst_TranscribeText::alert()
{
    QFETCH(bool, wanted);
    QFETCH(QString, text);
    TranscriptionContext context;
    context.UndefinedAlert = wanted;
    static_cast<void>(TranscribeText(text, exampleTable(), context));
    QTEST(context.AlertIsDue, "due");
}

QTEST_APPLESS_MAIN(tst_TranscribeText)
#include "tst_transcribetext.moc"
