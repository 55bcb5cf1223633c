#include "platform/FileRegistryStore.h"
#include "platform/OrdinaryUser.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <memory>
#include <vector>

namespace {

constexpr RegistryRoot user = RegistryRoot::CurrentUser;
constexpr RegistryRoot machine = RegistryRoot::LocalMachine;
constexpr int writesOfEach = 40;

/// One of several writers of the same store: as many values of its own, each in a key of its own
/// half of the time.
bool hammer(const QString &file, const QString &writer)
{
    FileRegistryStore store(file, {});
    bool succeeded = true;
    for (int i = 0; i < writesOfEach; ++i) {
        const RegistryKey key{user, i % 2 == 0 ? u"Shared"_qs : u"Own\\"_qs + writer};
        succeeded &= store.createKey(key);
        succeeded &= store.setValue(key, writer + QString::number(i), i);
    }
    return succeeded;
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

constexpr QFile::Permissions readable = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup |
                                        QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;
constexpr QFile::Permissions writable =
    readable | QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;

} // namespace

class tst_FileRegistryStore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void nothingStored();
    void writingCreatesFolderAndFile();
    void valuesOutliveTheStore();
    void rootsAreApart();
    void machineIsOnlyRead();
    void setsOnlyInExistingKeys();
    void equalValueIsNotWritten();
    void runningProgramsSeeEachOther();
    void threadsLoseNothing();
    void processesLoseNothing();
    void damagedStoreIsSetAside();
    void severalDamagedStoresAreKept();
    void unwritableFolderIsIgnored();
    void unreadableFileIsLeftAlone();
    void folderInPlaceOfTheFile();
    void noFilesRemain();
    void defaultPlaces();

private:
    std::unique_ptr<QTemporaryDir> folder_;
    QString file_;
    QString system_;
};

void tst_FileRegistryStore::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    QVERIFY(folder_->isValid());
    file_ = folder_->filePath(u"config/Quillon/settings.ini"_qs);
    system_ = folder_->filePath(u"system.ini"_qs);
}

void tst_FileRegistryStore::nothingStored()
{
    const FileRegistryStore store(file_, system_);
    QVERIFY(!store.contains({user, u"Software"_qs}));
    QVERIFY(!store.value({user, u"Software"_qs}, u"a"_qs));
    QVERIFY(!QFile::exists(file_));
}

void tst_FileRegistryStore::writingCreatesFolderAndFile()
{
    FileRegistryStore store(file_, system_);
    const RegistryKey key{user, u"Software\\Quillon"_qs};
    QVERIFY(store.createKey(key));
    QVERIFY(store.setValue(key, u"Version"_qs, u"0.1.0"_qs));
    QCOMPARE(contentOf(file_), QByteArray("[Software\\Quillon]\n\"Version\" = \"0.1.0\"\n"));
}

void tst_FileRegistryStore::valuesOutliveTheStore()
{
    const RegistryKey key{user, u"Software\\Quillon\\Mode"_qs};
    const QString path = u"/home/é \"x\"\\\n/Modes"_qs;
    {
        FileRegistryStore store(file_, system_);
        QVERIFY(store.createKey(key));
        QVERIFY(store.setValue(key, u"Path"_qs, path));
        QVERIFY(store.setValue(key, u"Count"_qs, -7));
    }
    const FileRegistryStore store(file_, system_);
    QCOMPARE(store.value(key, u"Path"_qs), RegistryValue(path));
    QCOMPARE(store.value(key, u"Count"_qs), RegistryValue(-7));
}

void tst_FileRegistryStore::rootsAreApart()
{
    write(system_, "[Key]\n\"Name\" = \"machine's\"\n");
    FileRegistryStore store(file_, system_);
    QVERIFY(store.contains({machine, u"Key"_qs}));
    QVERIFY(!store.contains({user, u"Key"_qs}));
    QVERIFY(store.createKey({user, u"Key"_qs}));
    QVERIFY(store.setValue({user, u"Key"_qs}, u"Name"_qs, u"user's"_qs));
    QCOMPARE(store.value({machine, u"Key"_qs}, u"Name"_qs), RegistryValue(u"machine's"_qs));
    QCOMPARE(store.value({user, u"Key"_qs}, u"Name"_qs), RegistryValue(u"user's"_qs));
}

void tst_FileRegistryStore::machineIsOnlyRead()
{
    const QByteArray content = "[Key]\n\"Name\" = \"a\"\n";
    write(system_, content);
    FileRegistryStore store(file_, system_);
    QVERIFY(!store.createKey({machine, u"Other"_qs}));
    QVERIFY(!store.setValue({machine, u"Key"_qs}, u"Name"_qs, u"b"_qs));
    QCOMPARE(contentOf(system_), content);
}

void tst_FileRegistryStore::setsOnlyInExistingKeys()
{
    FileRegistryStore store(file_, system_);
    QVERIFY(!store.setValue({user, u"Key"_qs}, u"Name"_qs, 1));
    QVERIFY(!store.value({user, u"Key"_qs}, u"Name"_qs));
}

void tst_FileRegistryStore::equalValueIsNotWritten()
{
    FileRegistryStore store(file_, system_);
    QVERIFY(store.createKey({user, u"Key"_qs}));
    QVERIFY(store.setValue({user, u"Key"_qs}, u"Name"_qs, u"a"_qs));
    QFile file(file_);
    QVERIFY(file.open(QIODevice::ReadOnly)); // keeps the old file alive: a new one gets its name
    QVERIFY(store.createKey({user, u"Key"_qs}));
    QVERIFY(store.setValue({user, u"Key"_qs}, u"Name"_qs, u"a"_qs));
    write(file_, "; touched\n");
    QCOMPARE(file.readAll(), QByteArray("; touched\n"));
}

void tst_FileRegistryStore::runningProgramsSeeEachOther()
{
    FileRegistryStore first(file_, system_);
    FileRegistryStore second(file_, system_);
    const RegistryKey key{user, u"Key"_qs};
    QVERIFY(first.createKey(key));
    QVERIFY(first.setValue(key, u"A"_qs, 1));
    QVERIFY(second.setValue(key, u"B"_qs, 2));
    QVERIFY(first.setValue(key, u"A"_qs, 3));
    QCOMPARE(second.value(key, u"A"_qs), RegistryValue(3));
    QCOMPARE(first.value(key, u"B"_qs), RegistryValue(2));
}

void tst_FileRegistryStore::threadsLoseNothing()
{
    std::vector<std::unique_ptr<QThread>> threads;
    const QStringList writers = {u"a"_qs, u"b"_qs, u"c"_qs};
    std::atomic<int> succeeded = 0;
    for (const QString &writer : writers) {
        threads.emplace_back(QThread::create([&, writer] { succeeded += hammer(file_, writer); }));
        threads.back()->start();
    }
    for (const auto &thread : threads)
        thread->wait();
    QCOMPARE(succeeded.load(), int(writers.size()));
    const FileRegistryStore store(file_, {});
    for (const QString &writer : writers) {
        for (int i = 0; i < writesOfEach; ++i) {
            const QString path = i % 2 == 0 ? u"Shared"_qs : u"Own\\"_qs + writer;
            QCOMPARE(store.value({user, path}, writer + QString::number(i)), RegistryValue(i));
        }
    }
}

void tst_FileRegistryStore::processesLoseNothing()
{
    const QStringList writers = {u"first"_qs, u"second"_qs};
    std::vector<std::unique_ptr<QProcess>> processes;
    for (const QString &writer : writers) {
        processes.push_back(std::make_unique<QProcess>());
        processes.back()->start(QCoreApplication::applicationFilePath(),
                                {u"--hammer"_qs, file_, writer});
    }
    for (const auto &process : processes) {
        QVERIFY(process->waitForFinished());
        QCOMPARE(process->exitCode(), 0);
    }
    const FileRegistryStore store(file_, {});
    for (const QString &writer : writers) {
        for (int i = 0; i < writesOfEach; ++i) {
            const QString path = i % 2 == 0 ? u"Shared"_qs : u"Own\\"_qs + writer;
            QCOMPARE(store.value({user, path}, writer + QString::number(i)), RegistryValue(i));
        }
    }
}

void tst_FileRegistryStore::damagedStoreIsSetAside()
{
    FileRegistryStore store(file_, system_);
    QVERIFY(store.createKey({user, u"Key"_qs}));
    const QByteArray damaged = "[Key]\n\"Name\" = \"a\"\n\"cut";
    write(file_, damaged);
    QVERIFY(!store.value({user, u"Key"_qs}, u"Name"_qs));
    QCOMPARE(contentOf(file_), damaged);
    QVERIFY(store.createKey({user, u"New"_qs}));
    QCOMPARE(contentOf(file_), QByteArray("[New]\n"));
    QCOMPARE(contentOf(file_ + u".damaged"_qs), damaged);
}

void tst_FileRegistryStore::severalDamagedStoresAreKept()
{
    FileRegistryStore store(file_, system_);
    QVERIFY(store.createKey({user, u"Key"_qs}));
    for (const QByteArray content : {"first", "second", "third"}) {
        write(file_, content);
        QVERIFY(store.createKey({user, u"Key"_qs}));
    }
    QCOMPARE(contentOf(file_ + u".damaged"_qs), QByteArray("first"));
    QCOMPARE(contentOf(file_ + u".damaged2"_qs), QByteArray("second"));
    QCOMPARE(contentOf(file_ + u".damaged3"_qs), QByteArray("third"));
}

void tst_FileRegistryStore::unwritableFolderIsIgnored()
{
    FileRegistryStore store(file_, system_);
    const RegistryKey key{user, u"Key"_qs};
    QVERIFY(store.createKey(key));
    QVERIFY(store.setValue(key, u"Name"_qs, u"a"_qs));
    QVERIFY(QFile::setPermissions(folder_->path(), readable));
    const QString folder = QFileInfo(file_).path();
    QVERIFY(QFile::setPermissions(folder_->filePath(u"config"_qs), readable));
    QVERIFY(QFile::setPermissions(folder, readable));
    {
        const OrdinaryUser ordinary;
        QVERIFY(ordinary.isDropped());
        QVERIFY(!store.setValue(key, u"Name"_qs, u"b"_qs));
        QVERIFY(!store.createKey({user, u"Other"_qs}));
        QCOMPARE(store.value(key, u"Name"_qs), RegistryValue(u"a"_qs));
        FileRegistryStore nowhere(folder + u"/new/settings.ini"_qs, {});
        QVERIFY(!nowhere.createKey(key));
    }
    for (const QString &each : {folder_->path(), folder_->filePath(u"config"_qs), folder})
        QVERIFY(QFile::setPermissions(each, writable));
    QCOMPARE(QDir(folder).entryList(QDir::Files), QStringList{u"settings.ini"_qs});
}

void tst_FileRegistryStore::unreadableFileIsLeftAlone()
{
    FileRegistryStore store(file_, system_);
    QVERIFY(store.createKey({user, u"Key"_qs}));
    QVERIFY(QFile::setPermissions(folder_->path(), writable));
    QVERIFY(QFile::setPermissions(folder_->filePath(u"config"_qs), writable));
    QVERIFY(QFile::setPermissions(QFileInfo(file_).path(), writable));
    QVERIFY(QFile::setPermissions(file_, QFile::Permissions()));
    {
        const OrdinaryUser ordinary;
        QVERIFY(ordinary.isDropped());
        QVERIFY(!store.contains({user, u"Key"_qs}));
        QVERIFY(!store.createKey({user, u"Other"_qs}));
    }
    QVERIFY(QFile::setPermissions(file_, QFile::ReadOwner));
    QCOMPARE(contentOf(file_), QByteArray("[Key]\n"));
}

void tst_FileRegistryStore::folderInPlaceOfTheFile()
{
    QVERIFY(QDir().mkpath(file_));
    FileRegistryStore store(file_, system_);
    QVERIFY(!store.createKey({user, u"Key"_qs}));
    QVERIFY(!store.contains({user, u"Key"_qs}));
    QVERIFY(QFileInfo(file_).isDir());
}

void tst_FileRegistryStore::noFilesRemain()
{
    QVERIFY(hammer(file_, u"one"_qs));
    QCOMPARE(QDir(QFileInfo(file_).path()).entryList(QDir::Files | QDir::Hidden),
             QStringList{u"settings.ini"_qs});
}

void tst_FileRegistryStore::defaultPlaces()
{
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder_->filePath(u"home"_qs)));
    const QString second = folder_->filePath(u"second"_qs);
    qputenv("XDG_CONFIG_DIRS", QFile::encodeName(folder_->filePath(u"first:"_qs) + second));
    QCOMPARE(FileRegistryStore::defaultUserFile(),
             folder_->filePath(u"home/Quillon/settings.ini"_qs));
    QCOMPARE(FileRegistryStore::defaultSystemFile(),
             folder_->filePath(u"first/Quillon/settings.ini"_qs));
    QVERIFY(QDir().mkpath(second + u"/Quillon"_qs));
    write(second + u"/Quillon/settings.ini"_qs, "");
    QCOMPARE(FileRegistryStore::defaultSystemFile(), second + u"/Quillon/settings.ini"_qs);
}

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == u"--hammer"_qs)
        return hammer(arguments.value(2), arguments.value(3)) ? 0 : 1;
    tst_FileRegistryStore test;
    return QTest::qExec(&test, arguments);
}
#include "tst_fileregistrystore.moc"
