#include "platform/ProgramFolder.h"

#include "engine/RuntimeError.h"
#include "platform/AtomicFile.h"
#include "platform/OrdinaryUser.h"
#include "support/FileSizeLimit.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>
#include <optional>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

const QVersionNumber older(0, 9);
const QVersionNumber version(1, 0);
const QVersionNumber newer(1, 10);

constexpr QFile::Permissions mayEnter(0x5555);
constexpr QFile::Permissions mayDoAll(0x7777);

/// An installation, whose folder the user can only read, and a home for the user's.
class Installation
{
public:
    Installation()
    {
        QFile::setPermissions(root_.path(), mayDoAll);
        QDir().mkpath(executables + u"/Modes"_s);
        QDir().mkpath(executables + u"/Fonts"_s);
        for (const QString &name : seeded)
            bring(name, "first " + name.toUtf8());
        bring(u"quillon"_s, "a program");
        bring(u"Fonts/TengwarQuillon-Regular.otf"_s, "a font");
    }
    ~Installation() { QFile::setPermissions(executables, mayDoAll); }
    Q_DISABLE_COPY_MOVE(Installation)

    /// Installs a file that nobody may change.
    void bring(const QString &name, const QByteArray &bytes) const
    {
        QFile::setPermissions(executables, mayDoAll);
        const QString path = executables + u'/' + name;
        QFile::remove(path);
        writeFile(path, bytes);
        QFile::setPermissions(path, QFile::Permissions(0x4444));
        QFile::setPermissions(executables, mayEnter);
    }

    [[nodiscard]] ProgramFolder folder() const { return {executables, user}; }

    /// Seeds as an ordinary user does.
    void seed(const QVersionNumber &by = version) const
    {
        const OrdinaryUser ordinary;
        folder().seed(by);
    }

    [[nodiscard]] std::optional<ErrorNumber> errorOfSeeding() const
    {
        try {
            seed();
            return std::nullopt;
        } catch (const RuntimeError &error) {
            return error.number();
        }
    }

    /// The folder that an ordinary user gets.
    [[nodiscard]] QString path() const
    {
        const OrdinaryUser ordinary;
        return folder().path();
    }

    /// Changes a file of the user's folder, as the user.
    void change(const QString &name, const QByteArray &bytes) const
    {
        const OrdinaryUser ordinary;
        writeFile(copy(name), bytes);
    }

    [[nodiscard]] QString copy(const QString &name) const { return user + u'/' + name; }

    [[nodiscard]] QStringList userFiles() const
    {
        QStringList names = QDir(user).entryList(QDir::Files | QDir::Hidden);
        for (const QString &mode : QDir(user + u"/Modes"_s).entryList(QDir::Files | QDir::Hidden))
            names.append(u"Modes/"_s + mode);
        names.removeOne(u"Seeded.txt"_s);
        names.sort();
        return names;
    }

    const QStringList seeded = {u"Modes/Elvish A.mod"_s, u"Modes/Other.mod"_s, u"Elvish A.bak"_s,
                                u"Other.bak"_s,          u"Source.tpl"_s,      u"Target.tpl"_s,
                                u"Quillon.hlp"_s};

private:
    QTemporaryDir root_;

public:
    const QString executables = root_.filePath(u"lib"_s);
    const QString user = root_.filePath(u"home/quillon/program"_s);
};

QStringList sorted(QStringList names)
{
    names.sort();
    return names;
}

} // namespace

class tst_ProgramFolder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ownCopyIsUsedAsItIs();
    void foldersThatCannotBeWrittenAreRead();
    void userGetsCopies();
    void secondStartWritesNothing();
    void newerVersionRefreshesWhatIsUnchanged();
    void olderVersionOnlyAddsWhatIsMissing();
    void changesStay_data();
    void changesStay();
    void deletedModeStaysAway();
    void lackingFilesComeBack();
    void goesOnAfterACrash();
    void failureKeepsTheInstalledFolder();
    void failedRefreshKeepsTheUsersFolder();
    void damagedManifestLosesNothing();
    void followsLinks();
    void twoStartsAtOnce();
    void killedAtAnyTimeNothingIsHalf();
};

void tst_ProgramFolder::ownCopyIsUsedAsItIs()
{
    const Installation installed;
    QFile::setPermissions(installed.executables, mayDoAll);
    installed.seed();
    QCOMPARE(installed.path(), installed.executables);
    QVERIFY(!QFile::exists(installed.user));
}

void tst_ProgramFolder::foldersThatCannotBeWrittenAreRead()
{
    const Installation installed;
    const OrdinaryUser ordinary;
    QVERIFY(ordinary.isDropped());
    for (const QString &home : {u"/proc/none/program"_s, installed.executables + u"/x"_s,
                                installed.executables + u"/Source.tpl/x"_s}) {
        const ProgramFolder folder(installed.executables, home);
        folder.seed(version);
        QCOMPARE(folder.path(), installed.executables);
    }
}

void tst_ProgramFolder::userGetsCopies()
{
    const Installation installed;
    QCOMPARE(installed.path(), installed.executables);
    installed.seed();
    QCOMPARE(installed.path(), installed.user);
    QCOMPARE(installed.userFiles(), sorted(installed.seeded));
    for (const QString &name : installed.seeded) {
        QCOMPARE(readFile(installed.copy(name)), "first " + name.toUtf8());
        QVERIFY(QFile::permissions(installed.copy(name)) & QFile::WriteOwner);
    }
}

void tst_ProgramFolder::secondStartWritesNothing()
{
    const Installation installed;
    installed.seed();
    const QString source = installed.copy(u"Source.tpl"_s);
    const QString manifest = installed.copy(u"Seeded.txt"_s);
    const OrdinaryUser ordinary;
    const FileSizeLimit nothing(0);
    installed.folder().seed(version);
    QCOMPARE(readFile(source), QByteArray("first Source.tpl"));
    QVERIFY(readFile(manifest).startsWith("Quillon 1.0\n"));
}

void tst_ProgramFolder::newerVersionRefreshesWhatIsUnchanged()
{
    const Installation installed;
    installed.seed();
    installed.bring(u"Modes/Other.mod"_s, "second");
    installed.bring(u"Quillon.hlp"_s, "second help");
    installed.bring(u"Modes/New.mod"_s, "new");
    for (const QVersionNumber &by : {version, newer}) { // also a build between two versions
        installed.seed(by);
        QCOMPARE(readFile(installed.copy(u"Modes/Other.mod"_s)), QByteArray("second"));
        QCOMPARE(readFile(installed.copy(u"Quillon.hlp"_s)), QByteArray("second help"));
        QCOMPARE(readFile(installed.copy(u"Modes/New.mod"_s)), QByteArray("new"));
        QCOMPARE(readFile(installed.copy(u"Source.tpl"_s)), QByteArray("first Source.tpl"));
    }
    installed.bring(u"Quillon.hlp"_s, "third help");
    installed.seed(newer);
    QCOMPARE(readFile(installed.copy(u"Quillon.hlp"_s)), QByteArray("third help"));
}

void tst_ProgramFolder::olderVersionOnlyAddsWhatIsMissing()
{
    const Installation installed;
    installed.seed(newer);
    installed.bring(u"Source.tpl"_s, "older");
    installed.bring(u"Modes/Gone.mod"_s, "older mode");
    installed.seed(older);
    QCOMPARE(readFile(installed.copy(u"Source.tpl"_s)), QByteArray("first Source.tpl"));
    QCOMPARE(readFile(installed.copy(u"Modes/Gone.mod"_s)), QByteArray("older mode"));
    installed.seed(version); // still older than what has seeded
    QCOMPARE(readFile(installed.copy(u"Source.tpl"_s)), QByteArray("first Source.tpl"));
    installed.seed(newer);
    QCOMPARE(readFile(installed.copy(u"Source.tpl"_s)), QByteArray("older"));
}

void tst_ProgramFolder::changesStay_data()
{
    using Change = void (*)(const QString &);
    QTest::addColumn<Change>("change");
    QTest::newRow("edited") << Change([](const QString &path) { writeFile(path, "mine"); });
    QTest::newRow("emptied") << Change([](const QString &path) { writeFile(path, {}); });
    QTest::newRow("write-protected") << Change([](const QString &path) {
        QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
    });
    QTest::newRow("unreadable") << Change(
        [](const QString &path) { QFile::setPermissions(path, QFile::Permissions()); });
    QTest::newRow("folder") << Change([](const QString &path) {
        QFile::remove(path);
        QDir().mkdir(path);
    });
    QTest::newRow("dangling link") << Change([](const QString &path) {
        QFile::remove(path);
        QFile::link(u"/nowhere"_s, path);
    });
}

void tst_ProgramFolder::changesStay()
{
    using Change = void (*)(const QString &);
    QFETCH(Change, change);
    const Installation installed;
    installed.seed();
    const QString changed = installed.copy(u"Modes/Other.mod"_s);
    {
        const OrdinaryUser ordinary;
        change(changed);
    }
    const auto state = [&changed] {
        const QFileInfo info(changed);
        return std::tuple(info.exists(), info.isDir(), info.isSymLink(), info.permissions(),
                          info.isFile() && info.isReadable() ? readFile(changed) : QByteArray());
    };
    const auto before = state();
    installed.bring(u"Modes/Other.mod"_s, "second");
    installed.bring(u"Source.tpl"_s, "second template");
    for (int start = 0; start < 2; ++start) {
        installed.seed(newer);
        QVERIFY(state() == before);
    }
    QCOMPARE(readFile(installed.copy(u"Source.tpl"_s)), QByteArray("second template"));
}

void tst_ProgramFolder::deletedModeStaysAway()
{
    const Installation installed;
    installed.seed();
    const QString mode = installed.copy(u"Modes/Other.mod"_s);
    QVERIFY(QFile::remove(mode));
    installed.seed();
    QVERIFY(!QFile::exists(mode));
    installed.bring(u"Modes/Other.mod"_s, "second");
    installed.bring(u"Other.bak"_s, "second");
    installed.seed(newer);
    QVERIFY(!QFile::exists(mode));
    QCOMPARE(readFile(installed.copy(u"Other.bak"_s)), QByteArray("second"));

    QVERIFY(QDir(installed.copy(u"Modes"_s)).removeRecursively());
    installed.seed(newer);
    QCOMPARE(readFile(mode), QByteArray("second"));
}

void tst_ProgramFolder::lackingFilesComeBack()
{
    const Installation installed;
    installed.seed();
    for (const QString &name : {u"Source.tpl"_s, u"Other.bak"_s, u"Quillon.hlp"_s})
        QVERIFY(QFile::remove(installed.copy(name)));
    installed.seed();
    QCOMPARE(installed.userFiles(), sorted(installed.seeded));
}

void tst_ProgramFolder::goesOnAfterACrash()
{
    const Installation installed;
    installed.seed();
    const QString mode = installed.copy(u"Modes/Other.mod"_s);
    installed.bring(u"Modes/Other.mod"_s, "second");
    installed.change(u"Modes/Other.mod"_s, "second"); // written, but the manifest was not
    installed.seed(newer);
    installed.bring(u"Modes/Other.mod"_s, "third");
    installed.seed(newer);
    QCOMPARE(readFile(mode), QByteArray("third"));
}

void tst_ProgramFolder::failureKeepsTheInstalledFolder()
{
    const Installation installed;
    installed.bring(u"Modes/Other.mod"_s, QByteArray(10'000, 'x'));
    {
        const FileSizeLimit full(4096);
        QCOMPARE(installed.errorOfSeeding(), ErrorNumber::DiskFull);
    }
    QCOMPARE(installed.path(), installed.executables);
    QCOMPARE(installed.errorOfSeeding(), std::nullopt);
    QCOMPARE(installed.path(), installed.user);
    QCOMPARE(installed.userFiles(), sorted(installed.seeded));
}

void tst_ProgramFolder::failedRefreshKeepsTheUsersFolder()
{
    const Installation installed;
    installed.seed();
    installed.bring(u"Modes/Other.mod"_s, QByteArray(10'000, 'x'));
    {
        const FileSizeLimit full(4096);
        QCOMPARE(installed.errorOfSeeding(), ErrorNumber::DiskFull);
    }
    QCOMPARE(installed.path(), installed.user);
    QCOMPARE(readFile(installed.copy(u"Modes/Other.mod"_s)), QByteArray("first Modes/Other.mod"));
}

void tst_ProgramFolder::damagedManifestLosesNothing()
{
    const Installation installed;
    installed.seed();
    installed.change(u"Source.tpl"_s, "mine");
    installed.bring(u"Source.tpl"_s, "second");
    installed.change(u"Seeded.txt"_s, QByteArray("\xFF\0  \n  \nQuillon\n  Source.tpl", 27));
    installed.seed();
    QCOMPARE(readFile(installed.copy(u"Source.tpl"_s)), QByteArray("mine"));
    installed.bring(u"Other.bak"_s, "second");
    installed.seed();
    QCOMPARE(readFile(installed.copy(u"Other.bak"_s)), QByteArray("second"));
}

void tst_ProgramFolder::followsLinks()
{
    const Installation installed;
    installed.seed();
    const QString elsewhere = installed.user + u"/../elsewhere"_s;
    QVERIFY(QDir().rename(installed.copy(u"Modes"_s), elsewhere));
    QVERIFY(QFile::link(elsewhere, installed.copy(u"Modes"_s)));
    installed.bring(u"Modes/Other.mod"_s, "second");
    installed.seed();
    QCOMPARE(readFile(elsewhere + u"/Other.mod"_s), QByteArray("second"));
}

void tst_ProgramFolder::twoStartsAtOnce()
{
    const Installation installed;
    const OrdinaryUser ordinary;
    const auto start = [&installed] { installed.folder().seed(version); };
    for (int i = 0; i < 20; ++i) {
        std::thread first(start);
        std::thread second(start);
        first.join();
        second.join();
        QCOMPARE(installed.userFiles(), sorted(installed.seeded));
        QVERIFY(QDir(installed.user).removeRecursively());
    }
}

void tst_ProgramFolder::killedAtAnyTimeNothingIsHalf()
{
    const Installation installed;
    const QByteArray large(200'000, 'x');
    for (const QString &name : installed.seeded)
        installed.bring(name, large);
    const OrdinaryUser ordinary;
    for (int wait = 0; wait < 20'000; wait += 1'000) { // microseconds
        const pid_t child = fork();
        if (child == 0) {
            installed.folder().seed(version);
            ::raise(SIGKILL);
        }
        ::usleep(static_cast<useconds_t>(wait));
        ::kill(child, SIGKILL);
        int status = 0;
        QCOMPARE(waitpid(child, &status, 0), child);
        const bool isWhole = installed.folder().path() == installed.user;
        for (const QString &name : installed.seeded)
            QVERIFY(QFile::exists(installed.copy(name)) ? readFile(installed.copy(name)) == large
                                                        : !isWhole);
        installed.folder().seed(version);
        QCOMPARE(installed.folder().path(), installed.user);
        QVERIFY(QDir(installed.user).removeRecursively());
    }
}

QTEST_APPLESS_MAIN(tst_ProgramFolder)
#include "tst_programfolder.moc"
