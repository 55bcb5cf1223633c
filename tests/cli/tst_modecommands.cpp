#include "cli/ProgramRun.h"
#include "support/ModeBytes.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

/// The `mode` commands as a process.
class tst_ModeCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void packs();
    void refusalLeavesTheOldFile();
    void unpacksWhatPacksAgain();
    void lists();
    void checks();
    void findsFaults();
    void failures_data();
    void failures();
    void hugeFiles_data();
    void hugeFiles();
    void wrongUsage_data();
    void wrongUsage();
    void help_data();
    void help();

private:
    [[nodiscard]] QString path(const QString &name) const { return folder_->filePath(name); }
    [[nodiscard]] QByteArray read(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QString write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write a test file");
        return file.fileName();
    }

    std::unique_ptr<QTemporaryDir> folder_;
};

namespace {

QStringList mode(const QStringList &arguments)
{
    return QStringList(QStringLiteral("mode")) + arguments;
}

const QByteArray testSource = "mode \"Für alle\"\nä after start -> tinco acute leaving x\n";

} // namespace

void tst_ModeCommands::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
}

void tst_ModeCommands::packs()
{
    const QString source = write(u"a.mode"_qs, testSource);
    const ProgramRun result = runProgram(mode({u"pack"_qs, source, path(u"a.mod"_qs)}));
    QCOMPARE(result.error, "");
    QCOMPARE(result.output, "");
    QCOMPARE(result.status, 0);
    QCOMPARE(read(u"a.mod"_qs), QByteArray("F\xFCr alle\t0").leftJustified(36, ' ') +
                                    QByteArray("\xE4\t1R\t\t\r\tx\t").leftJustified(36, ' '));
}

void tst_ModeCommands::refusalLeavesTheOldFile()
{
    const QString source = write(u"bad.mode"_qs, "mode x\n\na -> tinco\na -> ando\nb -> nothing\n");
    write(u"bad.mod"_qs, "old");
    ProgramRun result = runProgram(mode({u"pack"_qs, source, path(u"bad.mod"_qs)}));
    QCOMPARE(
        result.error,
        QStringLiteral("quillon-cli: %1:5: there is no sign 'nothing'\n").arg(source).toUtf8());
    QCOMPARE(result.output, "");
    QCOMPARE(result.status, 1);
    QCOMPARE(read(u"bad.mod"_qs), "old");
    QCOMPARE(QDir(folder_->path()).entryList(QDir::Files).size(), 2);
}

void tst_ModeCommands::unpacksWhatPacksAgain()
{
    const QByteArray bytes = ModeBytes().rule("a", "1").rule("a", "2").bytes() + "tail";
    const ProgramRun unpacked = runProgram(mode({u"unpack"_qs, write(u"odd.mod"_qs, bytes)}));
    QCOMPARE(unpacked.error, "");
    QCOMPARE(unpacked.status, 0);
    const QString source = write(u"odd.mode"_qs, unpacked.output);
    QCOMPARE(runProgram(mode({u"pack"_qs, source, path(u"again.mod"_qs)})).status, 0);
    QCOMPARE(read(u"again.mod"_qs), bytes);
}

void tst_ModeCommands::lists()
{
    write(u"two.mod"_qs, QByteArray("Second\t0").leftJustified(36, ' '));
    write(u"One.mod"_qs, QByteArray("First \xE9\t0").leftJustified(36, ' '));
    write(u"broken.mod"_qs, "no header");
    write(u"other.txt"_qs, "");
    const ProgramRun result = runProgram(mode({u"list"_qs, u"--modes"_qs, folder_->path()}));
    QCOMPARE(result.output, "broken\t\nOne\tFirst é\ntwo\tSecond\n");
    QCOMPARE(result.status, 0);
    const ProgramRun own = runProgram(mode({u"list"_qs}));
    QVERIFY2(own.output.contains("English\t"), own.output.constData());
}

void tst_ModeCommands::checks()
{
    const ProgramRun result = runProgram(
        mode({u"check"_qs, QStringLiteral(QUILLON_PROGRAM_FOLDER "/Modes/English.mod")}));
    QCOMPARE(result.error, "");
    QVERIFY2(result.output.contains(" rules\n"), result.output.constData());
    QCOMPARE(result.status, 0);
}

void tst_ModeCommands::findsFaults()
{
    const QString name = write(u"a.mod"_qs, ModeBytes().rule("a", "1C").rule("a", "2").bytes());
    const ProgramRun result = runProgram(mode({u"check"_qs, name}));
    QVERIFY2(result.error.contains("a.mod: record 2: the rule for \"a\": three-dots on \"1\""),
             result.error.constData());
    QVERIFY2(result.error.contains("a.mod: record 3: the rule for \"a\" repeats"),
             result.error.constData());
    QVERIFY2(result.error.contains("a.mod: the letter b has no rule of its own"),
             result.error.constData());
    QVERIFY2(result.output.startsWith("2 rules\nundefined: "), result.output.constData());
    QCOMPARE(result.status, 1);
}

void tst_ModeCommands::failures_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("error");
    QTest::newRow("pack, no source")
        << QStringList({u"pack"_qs, u"none.mode"_qs, u"x.mod"_qs}) << QByteArray("none.mode: ");
    QTest::newRow("pack, not UTF-8") << QStringList({u"pack"_qs, u"latin.mode"_qs, u"x.mod"_qs})
                                     << QByteArray("latin.mode: not UTF-8");
    QTest::newRow("pack, no folder for it")
        << QStringList({u"pack"_qs, u"good.mode"_qs, u"none/x.mod"_qs})
        << QByteArray("none/x.mod: ");
    QTest::newRow("unpack, no file")
        << QStringList({u"unpack"_qs, u"none.mod"_qs}) << QByteArray("none.mod: ");
    QTest::newRow("unpack, a folder") << QStringList({u"unpack"_qs, u"."_qs}) << QByteArray("");
    QTest::newRow("list, no folder") << QStringList({u"list"_qs, u"--modes"_qs, u"none"_qs})
                                     << QByteArray("there is no folder none");
    QTest::newRow("check, no file")
        << QStringList({u"check"_qs, u"none.mod"_qs}) << QByteArray("there is no mode none.mod");
    QTest::newRow("check, broken")
        << QStringList({u"check"_qs, u"broken.mod"_qs}) << QByteArray("Invalid procedure call");
}

void tst_ModeCommands::failures()
{
    QFETCH(const QStringList, arguments);
    QFETCH(const QByteArray, error);
    write(u"latin.mode"_qs, "mode \"\xE9\"\n");
    write(u"good.mode"_qs, testSource);
    write(u"broken.mod"_qs, QByteArray(36, 'x'));
    const QString here = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder_->path()));
    const ProgramRun result = runProgram(mode(arguments));
    QDir::setCurrent(here);
    QVERIFY2(result.error.startsWith("quillon-cli: ") && result.error.contains(error),
             result.error.constData());
    QCOMPARE(result.output, "");
    QCOMPARE(result.status, 1);
    QVERIFY(!QFile::exists(path(u"x.mod"_qs)));
}

void tst_ModeCommands::hugeFiles_data()
{
    QTest::addColumn<QStringList>("arguments");
    const QString huge = QStringLiteral("huge");
    QTest::newRow("pack") << QStringList({u"pack"_qs, huge, u"x.mod"_qs});
    QTest::newRow("unpack") << QStringList({u"unpack"_qs, huge});
    QTest::newRow("check") << QStringList({u"check"_qs, huge});
}

void tst_ModeCommands::hugeFiles()
{
    constexpr qint64 size = qint64(1) << 33;
    QFETCH(QStringList, arguments);
    QFile file(path(u"huge"_qs));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.resize(size)); // takes no room on the disk
    arguments.replaceInStrings(QStringLiteral("huge"), file.fileName());
    const ProgramRun result = runProgram(mode(arguments));
    QVERIFY2(result.error.contains("huge: larger than any mode (16777216 bytes)"),
             result.error.constData());
    QCOMPARE(result.status, 1);
}

void tst_ModeCommands::wrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("no command") << QStringList();
    QTest::newRow("unknown command") << QStringList(u"paint"_qs);
    QTest::newRow("pack without output") << QStringList({u"pack"_qs, u"x"_qs});
    QTest::newRow("unpack without file") << QStringList(u"unpack"_qs);
    QTest::newRow("list with a file") << QStringList({u"list"_qs, u"x"_qs});
    QTest::newRow("check with two files") << QStringList({u"check"_qs, u"x"_qs, u"y"_qs});
    QTest::newRow("unknown option") << QStringList({u"check"_qs, u"--fast"_qs, u"x"_qs});
}

void tst_ModeCommands::wrongUsage()
{
    QFETCH(const QStringList, arguments);
    const ProgramRun result = runProgram(mode(arguments));
    QVERIFY2(result.error.endsWith("(--help shows what is possible)\n"), result.error.constData());
    QCOMPARE(result.output, "");
    QCOMPARE(result.status, 2);
}

void tst_ModeCommands::help_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("mode") << QStringList(u"--help"_qs);
    for (const char *command : {"pack", "unpack", "list", "check"})
        QTest::newRow(command) << QStringList({QString::fromLatin1(command), u"--help"_qs});
}

void tst_ModeCommands::help()
{
    QFETCH(const QStringList, arguments);
    const ProgramRun result = runProgram(mode(arguments));
    QVERIFY2(result.output.startsWith("Usage: quillon-cli mode "), result.output.constData());
    QCOMPARE(result.error, "");
    QCOMPARE(result.status, 0);
}

QTEST_GUILESS_MAIN(tst_ModeCommands)
#include "tst_modecommands.moc"
