#include "engine/LoadMode.h"
#include "engine/source/CheckMode.h"
#include "engine/source/PackMode.h"
#include "support/ModeBytes.h"

#include <QTest>

/// What the checker finds in mode files.
class tst_CheckMode : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void faults_data();
    void faults();
    void unusableModes();
    void lettersWithoutRule();
    void exactModesNeedCapitals();
    void undefinedCharacters();
    void cutFiles();
};

namespace {

QByteArray record(const QByteArray &text)
{
    return text.leftJustified(RuleRecordLength, ' ');
}

/// A mode that covers the alphabet, so that only what is added is at fault.
QByteArray alphabet(char caseMode = '0')
{
    QByteArray bytes = record(QByteArray("Test\t") + caseMode);
    for (char letter = 'a'; letter <= 'z'; ++letter)
        bytes += record(QByteArray(1, letter) + "\t1\t\t\tx\t");
    return bytes;
}

QStringList textsOf(const QList<SourceProblem> &faults)
{
    QStringList texts;
    for (const SourceProblem &fault : faults)
        texts.append(QStringLiteral("%1: %2").arg(fault.line).arg(fault.message));
    return texts;
}

} // namespace

void tst_CheckMode::faults_data()
{
    QTest::addColumn<QByteArray>("rule");
    QTest::addColumn<QString>("fault");
    QTest::newRow("sound") << QByteArray("th\t3D\t\t\t\t") << QString();
    QTest::newRow("near-duplicate of a dot") << QByteArray("th\t1\xCA\t\t\t\t") << QString();
    QTest::newRow("dot by its second code") << QByteArray("th\t5(\t\t\t\t") << QString();
    QTest::newRow("doubled sign") << QByteArray("th\tz^H\t\t\t\t") << QString();
    QTest::newRow("mark on the letter of a tag") << QByteArray("th\tE\t\tx\t\t") << QString();
    QTest::newRow("mark on an unknown letter") << QByteArray("th\tC\t\t\t\t") << QString();
    QTest::newRow("repeats") << QByteArray("a\t1\t\t\t\t")
                             << QStringLiteral("28: the rule for \"a\" repeats that of record 2");
    QTest::newRow("shadowed")
        << QByteArray("a\t1\te\t\t\t")
        << QStringLiteral("28: the rule for \"a\" can never fire: that of record 2 comes first");
    QTest::newRow("wrong place above")
        << QByteArray("th\t3C\t\t\t\t")
        << QStringLiteral("28: the rule for \"th\": three-dots on \"3\" is \"D\", not \"C\"");
    QTest::newRow("wrong place inside")
        << QByteArray("th\tj\xC9\t\t\t\t")
        << QStringLiteral("28: the rule for \"th\": dot-below on \"j\" is \"L\", not \"É\"");
    QTest::newRow("wrong width of a bar")
        << QByteArray("th\t12[\t\t\t\t")
        << QStringLiteral("28: the rule for \"th\": nasal-bar on \"2\" is \"{\", not \"[\"");
    QTest::newRow("wrong hook")
        << QByteArray("th\tz+\t\t\t\t")
        << QStringLiteral("28: the rule for \"th\": hook on \"z\" is \"|\", not \"+\"");
    QTest::newRow("wrong place after a tag")
        << QByteArray("th\tC\t\tx\t\t")
        << QStringLiteral("28: the rule for \"th\": three-dots on \"1\" is \"E\", not \"C\"");
}

void tst_CheckMode::faults()
{
    QFETCH(const QByteArray, rule);
    QFETCH(const QString, fault);
    const ModeReport report = checkMode(alphabet() + record(rule));
    QCOMPARE(textsOf(report.faults), fault.isEmpty() ? QStringList() : QStringList(fault));
}

void tst_CheckMode::unusableModes()
{
    const ModeReport twoCases = checkMode(ModeBytes("c\t2").rule("a", "1").bytes());
    QVERIFY(textsOf(twoCases.faults).contains(u"1: case mode 2 makes every text empty"_qs));
    ModeBytes large;
    for (int i = 0; i <= ModeTable::maximumRules; ++i)
        large.rule(QByteArray::number(i), "1");
    const ModeReport tooMany = checkMode(large.bytes());
    QCOMPARE(tooMany.ruleCount, ModeTable::maximumRules + 1);
    QVERIFY(textsOf(tooMany.faults)
                .contains(u"0: no text can be transcribed with more than 32766 rules"_qs));
}

void tst_CheckMode::lettersWithoutRule()
{
    QByteArray bytes = alphabet();
    bytes.replace(record("q\t1\t\t\tx\t"), record("q\t1\t\rx\t\tx\t"));
    bytes.replace(record("j\t1\t\t\tx\t"), record("jj\t1\t\t\tx\t"));
    QCOMPARE(textsOf(checkMode(bytes).faults),
             QStringList({QStringLiteral("0: the letter j has no rule of its own"),
                          QStringLiteral("0: the letter q has no rule of its own")}));
}

void tst_CheckMode::exactModesNeedCapitals()
{
    constexpr qsizetype capitals = 26;
    QCOMPARE(checkMode(alphabet('1')).faults.size(), capitals);
}

void tst_CheckMode::undefinedCharacters()
{
    const QByteArray undefined = checkMode(alphabet() + record("!\tx\t\t\t\t")).undefined;
    QVERIFY(undefined.contains('?'));
    QVERIFY(undefined.contains('\xE9'));
    QVERIFY(!undefined.contains('!'));
    QVERIFY(!undefined.contains('\xC9')); // folded to its small letter
    QVERIFY(!undefined.contains('\x81')); // no character
}

void tst_CheckMode::cutFiles()
{
    constexpr qsizetype letters = 26;
    for (const QByteArray &bytes : {QByteArray(), QByteArray("Te"), record("Test\t0").chopped(1)})
        QCOMPARE(checkMode(bytes).faults.size(), letters);
}

QTEST_GUILESS_MAIN(tst_CheckMode)
#include "tst_checkmode.moc"
