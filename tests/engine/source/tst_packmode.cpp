#include "engine/LoadMode.h"
#include "engine/source/PackMode.h"

#include <QTest>

/// What a mode source becomes, and which sources are refused with which line and words.
class tst_PackMode : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void generatesRules_data();
    void generatesRules();
    void refusesTokens_data();
    void refusesTokens();
    void refusesStatements_data();
    void refusesStatements();
    void refusesTables_data();
    void refusesTables();
    void refusesRules_data();
    void refusesRules();
    void refusesRecords_data();
    void refusesRecords();
    void refusesDeadRules_data();
    void refusesDeadRules();
    void header_data();
    void header();
    void padding();
    void reportsEveryProblem();
    void tooManyRules();
    void tablesStayBounded();
};

namespace {

const QString modeLine = QStringLiteral("mode \"Test\"\n");

QStringList list(std::initializer_list<const char *> texts)
{
    QStringList list;
    for (const char *text : texts)
        list.append(QString::fromUtf8(text));
    return list;
}

QString fieldText(const QByteArray &field)
{
    return QString::fromLatin1(field).replace(u'\r', u'¬');
}

/// Each rule as roman/tengwar/following/preceding/leaves, with '¬' for a word boundary.
QStringList rulesOf(const PackedMode &packed)
{
    QStringList rules;
    for (const ModeRecord &record : packed.records) {
        const ModeRule rule = ruleOf(record).value_or(ModeRule());
        rules.append(QStringList{fieldText(rule.RomanText), fieldText(rule.TengwarText),
                                 fieldText(rule.FollowingCondition),
                                 fieldText(rule.PrecedingCondition), fieldText(rule.LeavesTag)}
                         .join(u'/'));
    }
    return rules;
}

QStringList problemsOf(const PackedMode &packed)
{
    QStringList problems;
    for (const SourceProblem &problem : packed.problems)
        problems.append(QStringLiteral("%1: %2").arg(problem.line).arg(problem.message));
    return problems;
}

void addRefusalColumns()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("problem");
}

void addRefusal(const char *source, const char *problem)
{
    QTest::newRow(problem) << QString::fromUtf8(source) << QString::fromUtf8(problem);
}

/// The source of the running row is refused with just that problem.
void verifyRefusal()
{
    QFETCH(const QString, source);
    QFETCH(const QString, problem);
    const PackedMode packed = packMode(modeLine + source);
    QCOMPARE(problemsOf(packed), QStringList(problem));
    QVERIFY(packed.bytes.isEmpty());
}

} // namespace

void tst_PackMode::generatesRules_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QStringList>("rules");
    const auto row = [](const char *name, const char *source,
                        std::initializer_list<const char *> rules) {
        QTest::newRow(name) << QString::fromUtf8(source) << list(rules);
    };

    row("a letter by name", "t -> tinco", {"t/1///"});
    row("codes as they stand", R"(t -> "x\x96\"\\")", {"t/x\u0096\"\\///"});
    row("nothing is written", "t ->", {"t////"});
    row("conditions and tag", "t after start before end -> tinco leaving c", {"t/1/¬/¬/c"});
    row("one following character, one tag", "t after x before y -> tinco leaving x", {"t/1/y/x/x"});
    row("alternatives", "t after start | x before end | y -> tinco leaving x",
        {"t/1/¬/¬/x", "t/1/y/¬/x", "t/1/¬/x/x", "t/1/y/x/x"});
    row("a comment and a heading", "[Letters] # all\nt -> tinco # one", {"t/1///"});
    row("a table", "table c: t tinco, d ando\n<c> -> <c>", {"t/1///", "d/2///"});
    row("entries on further lines", "table c:\n  t tinco,\n  d ando\n<c> -> <c>",
        {"t/1///", "d/2///"});
    row("a table in a table", "table c: t tinco\ntable e: <c>, d ando\n<e> -> <e>",
        {"t/1///", "d/2///"});
    row("the product of tables",
        "table v: a three-dots, e acute\ntable c: t tinco, d ando\n<v> <c> -> <c> <v>",
        {"at/1E///", "ad/2#///", "et/1R///", "ed/2$///"});
    row("the same entry twice", "table c: t tinco, d ando\n<c> <c> -> <c> doubling-bar",
        {"tt/1'///", "dd/2\"///"});
    row("a table as condition", "table v: a, e\nr before <v> -> romen", {"r/7/a//", "r/7/e//"});
    row("the signs of a condition",
        "table v: a three-dots\nx -> tinco leaving a\nr after <v> -> ore <v>",
        {"x/1///a", "r/6E//a/"});
    row("marks in the order of their kinds", "x -> tinco hook dot-below acute nasal-bar",
        {"x/1[RÊ+///"});
    row("silme turns", "s -> silme acute\nz -> silme", {"s/iR///", "z/8///"});
    row("marks inside lambe", "l -> lambe doubling-bar two-dots-below dot-below hook",
        {"l/j¸´L_///"});
    row("a doubled sign", "u -> quesse right-curl-twice", {"u/z^H///"});
    row("the foot of the last letter", "t -> tinco leaving foot\nn -> numen leaving foot z",
        {"t/1///sr", "n/5///wrz"});
    row("the head of the last letter", "t -> tinco leaving head\n9 -> hyarmen leaving head x",
        {"t/1///m", "9/9///nx"});
    row("marks on the letter of the step before",
        "t -> tinco leaving foot\nd -> ando leaving foot\ne after foot -> dot-below hook leaving x",
        {"t/1///sr", "d/2///wr", "e/Ê+//sr/x", "e/È+//wr/x"});
    row("only forms that some rule leaves, with that suffix",
        "t -> tinco leaving foot\nd -> ando leaving foot s\ne after foot s -> dot-below",
        {"t/1///sr", "d/2///wrs", "e/È//wrs/"});
    row("forms left in turn",
        "t -> tinco leaving head\ne after head -> acute leaving head e\ni after head e -> "
        "dot-above",
        {"t/1///m", "e/R//m/me", "i/T//me/"});
    row("a record as it stands",
        "raw \"t\\x091\\x09\\x09\\x09\\x09x\\x00123456789012345678901234567\"", {"t/1///"});
    row("statement words match as text", "mode -> tinco\ncase -> ando", {"mode/1///", "case/2///"});
}

void tst_PackMode::generatesRules()
{
    QFETCH(const QString, source);
    QFETCH(const QStringList, rules);
    const PackedMode packed = packMode(modeLine + source);
    QCOMPARE(problemsOf(packed), QStringList());
    QCOMPARE(rulesOf(packed), rules);
}

void tst_PackMode::refusesTokens_data()
{
    addRefusalColumns();
    addRefusal("\"a -> tinco", "2: the quotation mark is not closed");
    addRefusal("\"a\\n\" -> tinco",
               "2: only \\\", \\\\ and \\x with two hexadecimal digits are escapes");
    addRefusal("\"\\x4\" -> tinco", "2: \\x is followed by two hexadecimal digits");
    addRefusal("ŷ -> tinco", "2: 'ŷ' is not in code page 1252");
    addRefusal("< -> tinco",
               "2: '<' begins the name of a table, ended by '>'; a lone '<' stands in quotes");
    addRefusal("a : b -> tinco", "2: ',', '|' and ':' stand in quotes where a text is meant");
}

void tst_PackMode::refusesTokens()
{
    verifyRefusal();
}

void tst_PackMode::refusesStatements_data()
{
    addRefusalColumns();
    addRefusal("header \"x\"", "1: a source has either a 'mode' line or a 'header' line");
    addRefusal("mode \"Twice\"", "2: there is already a 'mode' line");
    addRefusal("mode", "2: 'mode' is followed by the comment in quotes");
    addRefusal("mode \"1234567890123456789012345678901234\"",
               "2: the comment has 34 characters; a header holds 33");
    addRefusal("mode \"a\\x09b\"", "2: the comment holds a TAB, which would end it");
    addRefusal("case", "2: 'case' is followed by 'fold', 'exact' or a number of two characters");
    addRefusal("padding spaces", "2: 'padding' is followed by 'blanks' or 'zeros'");
    addRefusal("raw x", "2: 'raw' is followed by a record in quotes");
    addRefusal("raw \"1234567890123456789012345678901234567\"", "2: a record holds 36 bytes");
    addRefusal("raw \"short\"\na -> tinco", "2: only the last record may be shorter than 36 bytes");
    addRefusal("unused 0", "2: 'unused' is followed by a number of records");
    addRefusal("unused 99999\nunused 2", "3: a source has at most 100000 records");
    addRefusal("nonsense", "2: a rule has one '->'; this line is no statement either");
    addRefusal("  a tinco", "2: an indented line belongs to a table, and there is none above it");
}

void tst_PackMode::refusesStatements()
{
    verifyRefusal();
}

void tst_PackMode::refusesTables_data()
{
    addRefusalColumns();
    addRefusal("table c t", "2: 'table' is followed by a name and ':'");
    addRefusal("table c: t\ntable c: d", "3: there is already a table 'c'");
    addRefusal("table c: t tinko", "2: there is no sign 'tinko'");
    addRefusal("table c: <d>", "2: there is no table 'd' above this line");
    addRefusal("table c: t, , d", "2: an entry of a table begins with a text");
    addRefusal("table c: t\ntable d: x <c>",
               "3: the signs of an entry can't come from another table");
}

void tst_PackMode::refusesTables()
{
    verifyRefusal();
}

void tst_PackMode::refusesRules_data()
{
    addRefusalColumns();
    addRefusal("-> tinco", "2: a rule begins with the text that it matches");
    addRefusal("<c> -> tinco", "2: there is no table 'c' above this line");
    addRefusal("a -> tinco -> ando", "2: a rule has one '->'; this line is no statement either");
    addRefusal("a b c d e f g h i j k l m n o p q -> tinco",
               "2: a rule matches at most 16 characters");
    addRefusal("table d: 0, 1, 2, 3, 4, 5, 6, 7, 8, 9\ntable e: <d>\ntable f: <d>\ntable g: <d>\n"
               "table h: <d>\ntable i: <d>\n<d> <e> <f> <g> <h> <i> ->",
               "8: a source has at most 100000 records");
    addRefusal("a after -> tinco", "2: 'after' takes 'start', 'head', 'foot', a tag or a table");
    addRefusal("a before end | -> tinco", "2: 'before' takes 'end', a character or a table");
    addRefusal("a -> tinco leaving", "2: 'leaving' takes 'head', 'foot' or a tag");
    addRefusal("table c: t tinco\na -> <c>", "3: the table 'c' is not named in front of '->'");
    addRefusal("a -> acute", "2: there is no letter that 'acute' could sit on");
    addRefusal("a -> space acute", "2: there is no letter that 'acute' could sit on");
    addRefusal("t -> tinco leaving head\na after head -> dot-below",
               "3: there is no letter that 'dot-below' could sit on");
    addRefusal("a -> space leaving foot", "2: there is no letter whose form could be left");
}

void tst_PackMode::refusesRules()
{
    verifyRefusal();
}

void tst_PackMode::refusesRecords_data()
{
    addRefusalColumns();
    addRefusal("\"\" -> tinco", "2: a record that begins with nothing is no rule");
    addRefusal("\"\\x09a\" -> tinco", "2: a record that begins with \"\\x09a\" is no rule");
    addRefusal("a -> \"\\x09\"", "2: a TAB would end the text \"\\x09\"");
    addRefusal("abc -> \"12345678901234567890\" leaving 123456789",
               "2: the texts of the rule for \"abc\" have 32 characters; a record holds 31");
}

void tst_PackMode::refusesRecords()
{
    verifyRefusal();
}

void tst_PackMode::refusesDeadRules_data()
{
    addRefusalColumns();
    addRefusal("12345678901234567 -> tinco",
               "2: the rule for \"12345678901234567\" can never fire: it "
               "has 17 characters, and at most 16 "
               "are compared");
    addRefusal(
        "\"\\x0D\" -> tinco",
        "2: the rule for \"\\x0D\" can never fire: a lone control character passes unchanged");
    addRefusal("A -> tinco",
               "2: the rule for \"A\" can never fire: the text is folded to lower case first");
    addRefusal("a before B -> tinco",
               "2: the rule for \"a\" can never fire: the following character is "
               "folded to lower case first");
    addRefusal("a before bc -> tinco",
               "2: the rule for \"a\" can never fire: only one following character is looked at");
    addRefusal("a after x -> tinco",
               "2: the rule for \"a\" can never fire: no rule leaves the tag \"x\"");
    addRefusal("a -> tinco\na -> ando", "3: the rule for \"a\" repeats that of line 2");
    addRefusal("a -> tinco\na before end -> ando",
               "3: the rule for \"a\" can never fire: that of line 2 comes first");
    addRefusal("a before end -> tinco\na before \"!\" -> ando",
               "3: the rule for \"a\" can never fire: that of line 2 comes first");
    addRefusal("x -> tinco leaving \" \"\na after start -> tinco\na after \" \" before end -> ando",
               "4: the rule for \"a\" can never fire: that of line 3 comes first");
    addRefusal("raw \"a\\x091\\x09\\x09\\x09\\x0912345678901234567890123456789\"\na -> tinco",
               "3: the rule for \"a\" repeats that of line 2");
}

void tst_PackMode::refusesDeadRules()
{
    verifyRefusal();
}

void tst_PackMode::header_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("fold") << QStringLiteral("mode \"Tést\"")
                          << QByteArray("T\xE9st\t0").leftJustified(36, ' ');
    QTest::newRow("exact") << QStringLiteral("case exact\nmode Test")
                           << QByteArray("Test\t1").leftJustified(36, ' ');
    QTest::newRow("number") << QStringLiteral("mode Test\ncase -3")
                            << QByteArray("Test\t-3").leftJustified(36, ' ');
    QTest::newRow("longest") << QStringLiteral("mode \"123456789012345678901234567890123\"")
                             << QByteArray("123456789012345678901234567890123\t0 ");
    QTest::newRow("as it stands") << QStringLiteral("header \"odd\\x00\"")
                                  << QByteArray("odd\0", 4);
}

void tst_PackMode::header()
{
    QFETCH(const QString, source);
    QFETCH(const QByteArray, bytes);
    const PackedMode packed = packMode(source);
    QCOMPARE(problemsOf(packed), QStringList());
    QCOMPARE(packed.bytes, bytes);
}

void tst_PackMode::padding()
{
    const QString source = modeLine + QStringLiteral("t -> tinco\nunused 1\n");
    const QByteArray unused(RuleRecordLength, '\0');
    const QByteArray rule("t\t1\t\t\t\t");
    QCOMPARE(packMode(source).bytes.sliced(RuleRecordLength),
             rule.leftJustified(RuleRecordLength, ' ') + unused);
    QCOMPARE(packMode(QStringLiteral("padding zeros\n") + source).bytes.sliced(RuleRecordLength),
             rule.leftJustified(RuleRecordLength, '\0') + unused);
}

void tst_PackMode::reportsEveryProblem()
{
    const PackedMode packed = packMode(modeLine + QStringLiteral("a -> tinko\n\nb -> andoo"));
    QCOMPARE(problemsOf(packed),
             list({"2: there is no sign 'tinko'", "4: there is no sign 'andoo'"}));
}

void tst_PackMode::tooManyRules()
{
    QString source = modeLine + QStringLiteral("table d: 0, 1, 2, 3, 4, 5, 6, 7, 8, 9\n");
    for (const QChar table : QStringLiteral("efg"))
        source += QStringLiteral("table %1: <d>\n").arg(table);
    const QString tenThousand = QStringLiteral("<d> <e> <f> <g> %1 ->\n");
    for (const QChar ending : QStringLiteral("abc"))
        source += tenThousand.arg(ending);
    QCOMPARE(problemsOf(packMode(source)), QStringList());
    source += tenThousand.arg(u'd');
    QCOMPARE(problemsOf(packMode(source)), list({"9: a mode holds at most 32766 rules"}));
}

void tst_PackMode::tablesStayBounded()
{
    QString source = modeLine + QStringLiteral("table t: a\n");
    for (int doublings = 0; doublings < 17; ++doublings)
        source += QStringLiteral("  <t>\n");
    QCOMPARE(problemsOf(packMode(source)), list({"19: a table has at most 100000 entries"}));
}

QTEST_GUILESS_MAIN(tst_PackMode)
#include "tst_packmode.moc"
