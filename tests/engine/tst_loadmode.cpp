#include "engine/LoadMode.h"
#include "engine/RuntimeError.h"
#include "support/ModeBytes.h"

#include <QBuffer>
#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <unistd.h>

Q_DECLARE_METATYPE(ErrorNumber)

class tst_LoadMode : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsHeaderAndRules();
    void headerOnlyIsAnEmptyTable();
    void skippedRecordsDoNotShiftRules();
    void everyByteIsTakenAsItStands();
    void longRomanTextLoads();
    void caseModes_data();
    void caseModes();
    void brokenFiles_data();
    void brokenFiles();
    void errorsEmptyTheTable();
    void truncatedTailIsABlankRecord();
    void missingFileEmptiesTheTable();
    void folderOfThatNameIsMissing();
    void unreadableFile();
    void failingDevice();
    void endlessBlanksAreReadWithoutHoldingThem();
    void rulesBeyondTheLimitAreCounted();
    void comments_data();
    void comments();

private:
    static ModeTable read(const QByteArray &bytes)
    {
        QByteArray copy = bytes;
        QBuffer buffer(&copy);
        buffer.open(QIODevice::ReadOnly);
        ModeTable table;
        readMode(buffer, QStringLiteral("test.mod"), table);
        return table;
    }
    static void write(const QString &name, const QByteArray &bytes)
    {
        QFile file(name);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }
};

void tst_LoadMode::readsHeaderAndRules()
{
    const ModeTable table =
        read(ModeBytes("Sample mode\t0").rule("th", "x").rule("t", "y", "", "", "t").bytes());
    QCOMPARE(table.ModeComment, u"Sample mode"_qs);
    QCOMPARE(table.CaseMode, 0);
    QCOMPARE(table.upperBound(), 3);
    QCOMPARE(table.RomanText, QStringList({u"th"_qs, u"t"_qs, QString(), QString()}));
    QCOMPARE(table.TengwarText, QStringList({u"x"_qs, u"y"_qs, QString(), QString()}));
    QCOMPARE(table.LeavesTag, QStringList({QString(), u"t"_qs, QString(), QString()}));
    QCOMPARE(table.FollowingCondition, QStringList(4));
    QCOMPARE(table.PrecedingCondition, QStringList(4));
}

void tst_LoadMode::headerOnlyIsAnEmptyTable()
{
    const ModeTable table = read(ModeBytes("Empty\t1").bytes());
    QCOMPARE(table.upperBound(), 1);
    QCOMPARE(table.ModeComment, u"Empty"_qs);
    QCOMPARE(table.CaseMode, 1);
}

void tst_LoadMode::skippedRecordsDoNotShiftRules()
{
    const ModeTable table = read(ModeBytes()
                                     .add("", '\0')
                                     .rule("a", "1")
                                     .rule("", "ignored")
                                     .add("\x05 not a rule")
                                     .rule("\n", "2") // code 10 begins a rule
                                     .add("", '\0')
                                     .bytes());
    QCOMPARE(table.RomanText, QStringList({u"a"_qs, u"\n"_qs, QString(), QString()}));
}

void tst_LoadMode::everyByteIsTakenAsItStands()
{
    const ModeTable table =
        read(ModeBytes().rule(" \"a\\", "\x80\x81\xAD ", "\r", " ", "\xFF").bytes());
    QCOMPARE(table.RomanText.first(), u" \"a\\"_qs);
    QCOMPARE(table.TengwarText.first(), u"€\u0081\u00AD "_qs);
    QCOMPARE(table.FollowingCondition.first(), u"\r"_qs);
    QCOMPARE(table.PrecedingCondition.first(), u" "_qs);
    QCOMPARE(table.LeavesTag.first(), u"ÿ"_qs);
}

void tst_LoadMode::longRomanTextLoads()
{
    const QByteArray roman(31, 'a');
    const ModeTable table = read(ModeBytes().rule(roman, "").bytes());
    QCOMPARE(table.RomanText.first(), QString::fromLatin1(roman));
}

void tst_LoadMode::caseModes_data()
{
    QTest::addColumn<QByteArray>("digits");
    QTest::addColumn<int>("caseMode");
    QTest::newRow("one digit, blanks") << QByteArray("1 ") << 1;
    QTest::newRow("one digit, NULs") << QByteArray("1\0", 2) << 1;
    QTest::newRow("blank first") << QByteArray(" 1") << 1;
    QTest::newRow("two digits") << QByteArray("12") << 12;
    QTest::newRow("sign") << QByteArray("-1") << -1;
    QTest::newRow("what follows is ignored") << QByteArray("01ignored") << 1;
}

void tst_LoadMode::caseModes()
{
    QFETCH(QByteArray, digits);
    QFETCH(int, caseMode);
    QCOMPARE(read(ModeBytes("c\t" + digits).bytes()).CaseMode, caseMode);
}

void tst_LoadMode::brokenFiles_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<ErrorNumber>("number");
    QTest::addColumn<QString>("where");
    const auto header = u"test.mod, record 1"_qs;
    const auto procedure = ErrorNumber::InvalidProcedureCall;
    const auto mismatch = ErrorNumber::TypeMismatch;
    QTest::newRow("nothing at all") << QByteArray() << procedure << header;
    QTest::newRow("header cut short") << QByteArray("a\t0") << procedure << header;
    QTest::newRow("header without TAB") << ModeBytes("no number 0").bytes() << procedure << header;
    QTest::newRow("blank header") << QByteArray(36, '\0') << procedure << header;
    QTest::newRow("no number") << ModeBytes("c\tx").bytes() << mismatch << header;
    QTest::newRow("number with a letter") << ModeBytes("c\t1x").bytes() << mismatch << header;
    QTest::newRow("empty number") << ModeBytes("c\t").bytes() << mismatch << header;
    QTest::newRow("TAB is the last byte")
        << ModeBytes(QByteArray(35, 'c') + '\t').bytes() << mismatch << header;
    QTest::newRow("four TABs") << ModeBytes().rule("a", "1").add("b\t2\t\t\t").bytes() << procedure
                               << u"test.mod, record 3"_qs;
    QTest::newRow("no TAB") << ModeBytes().add("no rule").bytes() << procedure
                            << u"test.mod, record 2"_qs;
    QTest::newRow("broken after blanks")
        << ModeBytes().add("", '\0').add("b").bytes() << procedure << u"test.mod, record 3"_qs;
}

void tst_LoadMode::brokenFiles()
{
    QFETCH(QByteArray, bytes);
    QFETCH(ErrorNumber, number);
    QFETCH(QString, where);
    try {
        static_cast<void>(read(bytes));
        QFAIL("the file was accepted");
    } catch (const RuntimeError &error) {
        QCOMPARE(error.number(), number);
        QCOMPARE(error.where(), where);
    }
}

void tst_LoadMode::errorsEmptyTheTable()
{
    ModeTable table = read(ModeBytes().rule("a", "1").bytes());
    QByteArray broken = ModeBytes().rule("a", "1").add("b").bytes();
    QBuffer buffer(&broken);
    buffer.open(QIODevice::ReadOnly);
    QVERIFY_THROWS_EXCEPTION(RuntimeError, readMode(buffer, u"broken"_qs, table));
    QCOMPARE(table, ModeTable());
}

void tst_LoadMode::truncatedTailIsABlankRecord()
{
    const QByteArray bytes = ModeBytes().rule("a", "1").rule("b", "2").bytes();
    for (qsizetype missing = 1; missing < RuleRecordLength; ++missing) {
        const ModeTable table = read(bytes.chopped(missing));
        QCOMPARE(table.RomanText, QStringList({u"a"_qs, QString(), QString()}));
    }
}

void tst_LoadMode::missingFileEmptiesTheTable()
{
    QTemporaryDir folder;
    write(folder.filePath(u"Good.mod"_qs), ModeBytes().rule("a", "1").bytes());
    ModeTable table;
    QVERIFY(LoadMode(folder.path(), u"Good"_qs, table));
    QCOMPARE(table.ruleCount(), 1);
    QVERIFY(!LoadMode(folder.path(), u"Missing"_qs, table));
    QCOMPARE(table, ModeTable());
    QCOMPARE(table.upperBound(), 1);
}

void tst_LoadMode::folderOfThatNameIsMissing()
{
    QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(u"Folder.mod"_qs));
    ModeTable table;
    QVERIFY(!LoadMode(folder.path(), u"Folder"_qs, table));
}

void tst_LoadMode::unreadableFile()
{
    if (geteuid() == 0)
        QSKIP("everything can be read by root");
    QTemporaryDir folder;
    const QString name = folder.filePath(u"Secret.mod"_qs);
    write(name, ModeBytes().bytes());
    QFile::setPermissions(name, {});
    ModeTable table;
    try {
        loadModeFile(name, table);
        QFAIL("the file was read");
    } catch (const RuntimeError &error) {
        QCOMPARE(error.number(), ErrorNumber::PathFileAccess);
        QCOMPARE(error.where(), name);
    }
}

namespace {

/// Gives the header of a mode, then blank records or an error without end.
class EndlessDevice : public QIODevice
{
public:
    EndlessDevice(qint64 length, qint64 failsAt) : length_(length), failsAt_(failsAt)
    {
        open(ReadOnly | Unbuffered);
    }
    [[nodiscard]] bool isSequential() const override { return true; }

protected:
    qint64 readData(char *data, qint64 size) override
    {
        if (failsAt_ >= 0 && given_ >= failsAt_)
            return -1;
        size = std::min(size, length_ - given_);
        std::fill_n(data, size, '\0');
        if (given_ == 0)
            std::ranges::copy(ModeBytes().bytes(), data);
        given_ += size;
        return size;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    qint64 length_;
    qint64 failsAt_;
    qint64 given_ = 0;
};

} // namespace

void tst_LoadMode::failingDevice()
{
    EndlessDevice device(1 << 20, 1 << 19);
    ModeTable table;
    try {
        readMode(device, u"failing"_qs, table);
        QFAIL("the device was read");
    } catch (const RuntimeError &error) {
        QCOMPARE(error.number(), ErrorNumber::DeviceIo);
    }
}

void tst_LoadMode::endlessBlanksAreReadWithoutHoldingThem()
{
    EndlessDevice device(qint64{1} << 31, -1);
    ModeTable table;
    readMode(device, u"blank"_qs, table);
    QCOMPARE(table.ruleCount(), 0);
}

void tst_LoadMode::rulesBeyondTheLimitAreCounted()
{
    ModeBytes bytes;
    for (int i = 0; i < ModeTable::maximumRules; ++i)
        bytes.rule("a", "1");
    QCOMPARE(read(bytes.bytes()).ruleCount(), ModeTable::maximumRules);
    bytes.rule("a", "1").rule("a", "1");
    QCOMPARE_GT(read(bytes.bytes()).ruleCount(), ModeTable::maximumRules);
    bytes.add("broken");
    QVERIFY_THROWS_EXCEPTION(RuntimeError, static_cast<void>(read(bytes.bytes())));
}

void tst_LoadMode::comments_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("comment");
    QTest::newRow("trailing blanks go") << ModeBytes("  A mode  \t0").bytes() << u"  A mode"_qs;
    QTest::newRow("no number is needed") << ModeBytes("A mode\tx").bytes() << u"A mode"_qs;
    QTest::newRow("no TAB") << ModeBytes("A mode").bytes() << QString();
    QTest::newRow("cut short behind the TAB") << QByteArray("A mode\t") << u"A mode"_qs;
    QTest::newRow("empty file") << QByteArray() << QString();
}

void tst_LoadMode::comments()
{
    QFETCH(QByteArray, bytes);
    QTemporaryDir folder;
    const QString name = folder.filePath(u"a.mod"_qs);
    write(name, bytes);
    QTEST(readModeComment(name), "comment");
    QCOMPARE(readModeComment(folder.filePath(u"missing.mod"_qs)), QString());
    QCOMPARE(readModeComment(folder.path()), QString());
}

QTEST_GUILESS_MAIN(tst_LoadMode)
#include "tst_loadmode.moc"
