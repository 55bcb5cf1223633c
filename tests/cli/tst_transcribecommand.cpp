#include "cli/ProgramRun.h"
#include "support/ModeBytes.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

/// The command line as a process.
class tst_TranscribeCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void standardInput();
    void filesInTheirOrder();
    void modeByFileName();
    void undefinedText();
    void combiningMarksAreComposed();
    void lineBreaksComeOutAsTheyCameIn();
    void longTextsEqualOneWalk();
    void failures_data();
    void failures();
    void notUtf8();
    void wrongUsage_data();
    void wrongUsage();
    void helpAndVersion();
    void outputThatCannotBeWritten();

private:
    [[nodiscard]] QStringList transcribe(const QStringList &more = {}) const
    {
        return QStringList(
                   {u"transcribe"_qs, u"--modes"_qs, folder_->path(), u"--mode"_qs, u"Test"_qs}) +
               more;
    }
    QString write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(folder_->filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write a test file");
        return file.fileName();
    }

    std::unique_ptr<QTemporaryDir> folder_;
};

void tst_TranscribeCommand::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    write(u"Test.mod"_qs,
          ModeBytes().rule("a", "1").rule("b", "\x80").rule("\xE9", "E").rule("aab", "W").bytes());
}

void tst_TranscribeCommand::standardInput()
{
    const ProgramRun result = runProgram(transcribe(), "AB");
    QCOMPARE(result.output, "1€");
    QCOMPARE(result.error, "");
    QCOMPARE(result.status, 0);
    QCOMPARE(runProgram(transcribe({u"-"_qs}), "a").output, "1");
}

void tst_TranscribeCommand::filesInTheirOrder()
{
    const QString first = write(u"1.txt"_qs, "a\n");
    const QString second = write(u"2.txt"_qs, "\xEF\xBB\xBF"
                                              "b");
    QCOMPARE(runProgram(transcribe({second, first, second})).output, "€1\n€");
}

void tst_TranscribeCommand::modeByFileName()
{
    const QString file = folder_->filePath(u"Test.mod"_qs);
    QCOMPARE(runProgram({u"transcribe"_qs, u"--mode"_qs, file}, "a").output, "1");
}

void tst_TranscribeCommand::undefinedText()
{
    const ProgramRun silent = runProgram(transcribe(), "axx😀a");
    QCOMPARE(silent.output, "11");
    QCOMPARE(silent.status, 0);
    QCOMPARE(silent.error.count('\n'), 1);
    QCOMPARE(runProgram(transcribe({u"--undefined"_qs, u"<?>"_qs}), "ax😀a").output, "1<?><?>1");
}

void tst_TranscribeCommand::combiningMarksAreComposed()
{
    QCOMPARE(runProgram(transcribe(), "e\xCC\x81").output, "E");
}

void tst_TranscribeCommand::lineBreaksComeOutAsTheyCameIn()
{
    QCOMPARE(runProgram(transcribe(), "a\na\r\na\ra\n").output, "1\n1\r\n1\r1\n");
}

void tst_TranscribeCommand::longTextsEqualOneWalk()
{
    // Pieces are 65,536 bytes long; the wide rule lies over each cut in one of the texts.
    for (const int lead : {65533, 65534, 65535, 65536}) {
        const QByteArray result = runProgram(transcribe(), QByteArray(lead, 'b') + "aab\n").output;
        QCOMPARE(result, QByteArray("€").repeated(lead) + "W\n");
    }
}

void tst_TranscribeCommand::failures_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("error");
    QTest::newRow("missing mode") << QStringList{u"--mode"_qs, u"Gone"_qs} << QByteArray("no mode");
    QTest::newRow("missing mode file")
        << QStringList{u"--mode"_qs, u"/nowhere/Gone.mod"_qs} << QByteArray("no mode");
    QTest::newRow("broken mode") << QStringList{u"--mode"_qs, u"Broken"_qs}
                                 << QByteArray("Invalid procedure call or argument: ");
    QTest::newRow("too many rules")
        << QStringList{u"--mode"_qs, u"Large"_qs} << QByteArray("Overflow");
    QTest::newRow("missing file") << QStringList{u"--mode"_qs, u"Test"_qs, u"good.txt"_qs,
                                                 u"gone.txt"_qs}
                                  << QByteArray("gone.txt");
    QTest::newRow("a folder as file")
        << QStringList{u"--mode"_qs, u"Test"_qs, u"good.txt"_qs, u"/"_qs}
        << QByteArray("directory");
}

void tst_TranscribeCommand::failures()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, error);
    write(u"Broken.mod"_qs, ModeBytes().add("no rule").bytes());
    ModeBytes large;
    for (int i = 0; i <= ModeTable::maximumRules; ++i)
        large.rule("a", "1");
    write(u"Large.mod"_qs, large.bytes());
    const QString good = write(u"good.txt"_qs, "a");
    arguments.replaceInStrings(u"good.txt"_qs, good);
    const ProgramRun result = runProgram(
        QStringList({u"transcribe"_qs, u"--modes"_qs, folder_->path()}) + arguments, "a");
    QCOMPARE(result.status, 1);
    QCOMPARE(result.output, "");
    QVERIFY2(result.error.contains(error), result.error.constData());
}

void tst_TranscribeCommand::notUtf8()
{
    const ProgramRun result = runProgram(transcribe(), "aaa\xE9"
                                                       "a");
    QCOMPARE(result.status, 1);
    QVERIFY2(result.error.contains("byte 3"), result.error.constData());
    const ProgramRun cutShort = runProgram(transcribe(), "aa\xE2\x82");
    QCOMPARE(cutShort.status, 1);
    QVERIFY2(cutShort.error.contains("byte 2"), cutShort.error.constData());
}

void tst_TranscribeCommand::wrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("nothing") << QStringList();
    QTest::newRow("unknown command") << QStringList{u"transcrib"_qs};
    QTest::newRow("unknown option") << QStringList{u"transcribe"_qs, u"--mod"_qs, u"x"_qs};
    QTest::newRow("no mode") << QStringList{u"transcribe"_qs};
    QTest::newRow("value missing") << QStringList{u"transcribe"_qs, u"--mode"_qs};
}

void tst_TranscribeCommand::wrongUsage()
{
    QFETCH(QStringList, arguments);
    const ProgramRun result = runProgram(arguments, "a");
    QCOMPARE(result.status, 2);
    QCOMPARE(result.output, "");
    QVERIFY(!result.error.isEmpty());
}

void tst_TranscribeCommand::helpAndVersion()
{
    QVERIFY(runProgram({u"--help"_qs}).output.contains("transcribe"));
    const ProgramRun help = runProgram({u"transcribe"_qs, u"--help"_qs});
    QCOMPARE(help.status, 0);
    QVERIFY(help.output.startsWith("Usage: quillon-cli transcribe"));
    const QList<QStringList> commands = {{},
                                         {u"transcribe"_qs},
                                         {u"mode"_qs},
                                         {u"mode"_qs, u"check"_qs},
                                         {u"rtf2text"_qs},
                                         {u"rtf2rtf"_qs}};
    for (const QStringList &command : commands) {
        const ProgramRun version = runProgram(command + QStringList{u"--version"_qs});
        QCOMPARE(version.status, 0);
        QVERIFY(version.output.startsWith("quillon-cli "));
    }
    QVERIFY(runProgram({u"mode"_qs, u"check"_qs, u"--help"_qs})
                .output.startsWith("Usage: quillon-cli mode check"));
}

void tst_TranscribeCommand::outputThatCannotBeWritten()
{
    if (!QFile::exists(u"/dev/full"_qs))
        QSKIP("this system has no full device");
    QProcess process;
    process.setStandardOutputFile(u"/dev/full"_qs);
    process.start(QStringLiteral(QUILLON_PROGRAM_FOLDER "/quillon-cli"), transcribe());
    process.write("a");
    process.closeWriteChannel();
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 1);
}

QTEST_GUILESS_MAIN(tst_TranscribeCommand)
#include "tst_transcribecommand.moc"
