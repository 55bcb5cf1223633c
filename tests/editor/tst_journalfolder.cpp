#include "editor/JournalFolder.h"

#include "engine/RuntimeError.h"
#include "platform/OrdinaryUser.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>
#include <optional>
#include <sys/wait.h>
#include <unistd.h>

namespace {

template<typename Operation> std::optional<ErrorNumber> errorOf(Operation operation)
{
    try {
        operation();
        return std::nullopt;
    } catch (const RuntimeError &error) {
        return error.number();
    }
}

/// Folders as a program meets them.
struct Folders
{
    QTemporaryDir root;
    QString program = root.filePath(QStringLiteral("program"));
    QString cache = root.filePath(QStringLiteral("cache"));

    Folders() { QDir().mkpath(program); }

    [[nodiscard]] QStringList runsInCache() const
    {
        return QDir(cache + QStringLiteral("/Undo"))
            .entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }
};

/// A run of the program that writes an entry and is killed.
void crash(const Folders &folders)
{
    const pid_t child = fork();
    if (child == 0) {
        const JournalFolder folder(folders.program, folders.cache);
        folder.write(QStringLiteral("rom0000.tmp"), "{\\rtf1 left behind}");
        ::raise(SIGKILL);
    }
    int status = 0;
    waitpid(child, &status, 0);
    QVERIFY(WIFSIGNALED(status));
}

} // namespace

class tst_JournalFolder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void takesTheProgramFolder();
    void neverSharesAFolder();
    void takesTheCacheWhereTheProgramFolderCannotBeWritten();
    void takesTheCacheWhereThereIsNoProgramFolder();
    void takesOverAfterACrash();
    void removesWhatACrashLeftInTheCache();
    void keepsTheFoldersOfOtherRuns();
    void worksWithoutAnyFolder();
    void writesAndFindsEntries();
    void deletesByPattern();
};

void tst_JournalFolder::takesTheProgramFolder()
{
    const Folders folders;
    {
        const JournalFolder folder(folders.program, folders.cache);
        QCOMPARE(folder.path(), folders.program);
        folder.write(QStringLiteral("rom0000.tmp"), "{}");
        QVERIFY(QFile::exists(folders.program + QStringLiteral("/rom0000.tmp")));
    }
    QVERIFY(!QFile::exists(folders.cache));
    QCOMPARE(QDir(folders.program).entryList(QDir::Files), {QStringLiteral("rom0000.tmp")});
}

void tst_JournalFolder::neverSharesAFolder()
{
    const Folders folders;
    const QString name = QStringLiteral("rom0000.tmp");
    const JournalFolder first(folders.program, folders.cache);
    {
        const JournalFolder second(folders.program, folders.cache);
        const JournalFolder third(folders.program, folders.cache);
        QCOMPARE(first.path(), folders.program);
        QVERIFY(second.path().startsWith(folders.cache));
        QVERIFY(third.path().startsWith(folders.cache));
        QVERIFY(second.path() != third.path());
        for (const JournalFolder *folder : {&first, &second, &third})
            folder->write(name, "{}");
        second.remove(QStringLiteral("*"));
        QVERIFY(!QFile::exists(second.path() + QLatin1Char('/') + name));
        QVERIFY(QFile::exists(first.path() + QLatin1Char('/') + name));
        QVERIFY(QFile::exists(third.path() + QLatin1Char('/') + name));
    }
    QVERIFY2(folders.runsInCache().isEmpty(), "a run's own folder goes at its end");
}

void tst_JournalFolder::takesTheCacheWhereTheProgramFolderCannotBeWritten()
{
    const Folders folders;
    QFile::setPermissions(folders.root.path(), QFile::Permissions(0x7777));
    QFile::setPermissions(folders.program, QFile::Permissions(0x5555));
    const OrdinaryUser user;
    QVERIFY(user.isDropped());
    const JournalFolder folder(folders.program, folders.cache);
    QVERIFY(folder.path().startsWith(folders.cache));
    folder.write(QStringLiteral("rom0000.tmp"), "{}");
}

void tst_JournalFolder::takesTheCacheWhereThereIsNoProgramFolder()
{
    const Folders folders;
    const JournalFolder folder(folders.program + QStringLiteral("/missing"), folders.cache);
    QVERIFY(folder.path().startsWith(folders.cache));
    folder.write(QStringLiteral("rom0000.tmp"), "{}");
}

void tst_JournalFolder::takesOverAfterACrash()
{
    const Folders folders;
    crash(folders);
    const JournalFolder folder(folders.program, folders.cache);
    QCOMPARE(folder.path(), folders.program);
    QVERIFY(QFile::exists(folders.program + QStringLiteral("/rom0000.tmp")));
    folder.remove(QStringLiteral("rom*"));
    QVERIFY(!QFile::exists(folders.program + QStringLiteral("/rom0000.tmp")));
}

void tst_JournalFolder::removesWhatACrashLeftInTheCache()
{
    const Folders folders;
    {
        const JournalFolder holder(folders.program, folders.cache);
        crash(folders);
    }
    QCOMPARE(folders.runsInCache().size(), 2); // the folder and its lock
    const JournalFolder later(folders.program, folders.cache);
    QVERIFY(folders.runsInCache().isEmpty());
}

void tst_JournalFolder::keepsTheFoldersOfOtherRuns()
{
    const Folders folders;
    const JournalFolder holder(folders.program, folders.cache);
    const JournalFolder running(folders.program, folders.cache);
    running.write(QStringLiteral("tng0000.tmp"), "{}");
    const JournalFolder later(folders.program, folders.cache);
    QCOMPARE(running.entry(QStringLiteral("tng0000.tmp")),
             running.path() + QStringLiteral("/tng0000.tmp"));
}

void tst_JournalFolder::worksWithoutAnyFolder()
{
    const JournalFolder folder(QStringLiteral("/proc/none"), QStringLiteral("/proc/none"));
    QCOMPARE(errorOf([&] { folder.write(QStringLiteral("rom0000.tmp"), "{}"); }),
             ErrorNumber::PathNotFound);
    folder.remove(QStringLiteral("*"));
}

void tst_JournalFolder::writesAndFindsEntries()
{
    const Folders folders;
    const JournalFolder folder(folders.program, folders.cache);
    const QString name = QStringLiteral("rom0000.tmp");
    QCOMPARE(errorOf([&] { static_cast<void>(folder.entry(name)); }), ErrorNumber::PathFileAccess);
    folder.write(name, "{\\rtf1 a long entry}");
    folder.write(name, "{\\rtf1}");
    QFile file(folder.entry(name));
    QVERIFY(file.open(QIODevice::ReadWrite));
    QCOMPARE(file.readAll(), QByteArray("{\\rtf1}"));
    QVERIFY(file.resize(file.size() - 1));
    QCOMPARE(errorOf([&] { static_cast<void>(folder.entry(name)); }), ErrorNumber::DeviceIo);

    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("rom0001.tmp")));
    QCOMPARE(errorOf([&] { folder.write(QStringLiteral("rom0001.tmp"), "{}"); }),
             ErrorNumber::PathFileAccess);
}

void tst_JournalFolder::deletesByPattern()
{
    const Folders folders;
    const JournalFolder folder(folders.program, folders.cache);
    const QStringList names = {QStringLiteral("rom0000.tmp"), QStringLiteral("rom12345.tmp"),
                               QStringLiteral("tng0000.tmp"), QStringLiteral("other.tmp"),
                               QStringLiteral("rom.mod"),     QStringLiteral("Source.tpl")};
    for (const QString &name : names)
        folder.write(name, "{}");
    QDir(folder.path()).mkdir(QStringLiteral("folder.tmp"));
    const auto left = [&] {
        QStringList files = QDir(folder.path()).entryList(QDir::Files, QDir::Name);
        files.removeOne(QStringLiteral("Quillon.lock"));
        return files;
    };

    folder.remove(QStringLiteral("rom*"));
    QCOMPARE(left(), (QStringList{QStringLiteral("Source.tpl"), QStringLiteral("other.tmp"),
                                  QStringLiteral("rom.mod"), QStringLiteral("tng0000.tmp")}));
    folder.remove(QStringLiteral("*"));
    QCOMPARE(left(), (QStringList{QStringLiteral("Source.tpl"), QStringLiteral("rom.mod")}));
    QVERIFY(QDir(folder.path()).exists(QStringLiteral("folder.tmp")));
}

QTEST_MAIN(tst_JournalFolder)
#include "tst_journalfolder.moc"
