#include "platform/AtomicFile.h"

#include "engine/RuntimeError.h"
#include "platform/OrdinaryUser.h"
#include "support/FileSizeLimit.h"
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <memory>
#include <optional>

namespace {

/// The error that an operation ends with; none if it succeeds.
template<typename Operation> std::optional<RuntimeError> errorOf(Operation operation)
{
    try {
        operation();
        return std::nullopt;
    } catch (const RuntimeError &error) {
        return error;
    }
}

constexpr QFile::Permissions readable = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup |
                                        QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;
constexpr QFile::Permissions writable =
    readable | QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;

} // namespace

class tst_AtomicFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void writesAndReadsBack_data();
    void writesAndReadsBack();
    void replacesTheOldFile();
    void keepsLinkAndPermissions();
    void fullDiskKeepsTheOldFile();
    void unwritableFolderKeepsTheOldFile();
    void missingFolder();
    void folderInPlaceOfAFile();
    void readingWhatIsNoFile();
    void readingIsLimited();
    void readingWithoutPermission();

private:
    [[nodiscard]] QStringList files() const
    {
        return QDir(folder_->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    std::unique_ptr<QTemporaryDir> folder_;
    QString path_;
};

void tst_AtomicFile::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    QVERIFY(folder_->isValid());
    path_ = folder_->filePath(u"file é.rtf"_qs);
}

void tst_AtomicFile::cleanup()
{
    QFile::setPermissions(folder_->path(), writable);
}

void tst_AtomicFile::writesAndReadsBack_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("text\r\n");
    QTest::newRow("NULs") << QByteArray(10, '\0');
    QTest::newRow("long") << QByteArray(5'000'000, 'x');
}

void tst_AtomicFile::writesAndReadsBack()
{
    QFETCH(QByteArray, bytes);
    writeFile(path_, bytes);
    QVERIFY(readFile(path_) == bytes);
    QCOMPARE(files(), QStringList{u"file é.rtf"_qs});
}

void tst_AtomicFile::replacesTheOldFile()
{
    writeFile(path_, "a longer old content");
    QFile old(path_);
    QVERIFY(old.open(QIODevice::ReadOnly));
    writeFile(path_, "new");
    QCOMPARE(readFile(path_), QByteArray("new"));
    QCOMPARE(old.readAll(), QByteArray("a longer old content")); // a new file has taken its name
}

void tst_AtomicFile::keepsLinkAndPermissions()
{
    const QString target = folder_->filePath(u"target"_qs);
    writeFile(target, "old");
    const auto permissions = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther;
    QVERIFY(QFile::setPermissions(target, permissions));
    QVERIFY(QFile::link(target, path_));
    writeFile(path_, "new");
    QCOMPARE(readFile(target), QByteArray("new"));
    QVERIFY(QFileInfo(path_).isSymLink());
    QCOMPARE(QFile::permissions(target) & (permissions | QFile::ReadGroup), permissions);
}

void tst_AtomicFile::fullDiskKeepsTheOldFile()
{
    writeFile(path_, "old");
    for (const int limit : {0, 1, 4096, 99'999}) {
        std::optional<RuntimeError> error;
        {
            const FileSizeLimit full(limit);
            error = errorOf([this] { writeFile(path_, QByteArray(100'000, 'x')); });
        }
        QVERIFY(error);
        QCOMPARE(error->number(), ErrorNumber::DiskFull);
        QCOMPARE(error->where(), path_);
        QCOMPARE(readFile(path_), QByteArray("old"));
        QCOMPARE(files().size(), 1);
    }
}

void tst_AtomicFile::unwritableFolderKeepsTheOldFile()
{
    writeFile(path_, "old");
    QVERIFY(QFile::setPermissions(path_, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther));
    QVERIFY(QFile::setPermissions(folder_->path(), readable));
    const OrdinaryUser ordinary;
    QVERIFY(ordinary.isDropped());
    const auto error = errorOf([this] { writeFile(path_, "new"); });
    QVERIFY(error);
    QCOMPARE(error->number(), ErrorNumber::PermissionDenied);
    QCOMPARE(readFile(path_), QByteArray("old"));
}

void tst_AtomicFile::missingFolder()
{
    const QString path = folder_->filePath(u"none/file"_qs);
    const auto error = errorOf([&] { writeFile(path, "new"); });
    QVERIFY(error);
    QCOMPARE(error->number(), ErrorNumber::PathNotFound);
    QCOMPARE(error->where(), path);
    QVERIFY(files().isEmpty());
}

void tst_AtomicFile::folderInPlaceOfAFile()
{
    QVERIFY(QDir().mkdir(path_));
    const auto error = errorOf([this] { writeFile(path_, "new"); });
    QVERIFY(error);
    QCOMPARE(error->number(), ErrorNumber::PathFileAccess);
    QVERIFY(QFileInfo(path_).isDir());
}

void tst_AtomicFile::readingWhatIsNoFile()
{
    for (const QString &path :
         {path_, folder_->path(), path_ + u"/x"_qs, QString(), u"/dev/zero"_qs}) {
        const auto error = errorOf([&] { static_cast<void>(readFile(path)); });
        QVERIFY(error);
        QCOMPARE(error->number(), ErrorNumber::PathFileAccess);
        QCOMPARE(error->where(), path);
    }
}

void tst_AtomicFile::readingIsLimited()
{
    writeFile(path_, "12345");
    QCOMPARE(readFile(path_, 5), QByteArray("12345"));
    const auto error = errorOf([this] { static_cast<void>(readFile(path_, 4)); });
    QVERIFY(error);
    QCOMPARE(error->number(), ErrorNumber::OutOfMemory);
}

void tst_AtomicFile::readingWithoutPermission()
{
    writeFile(path_, "secret");
    QVERIFY(QFile::setPermissions(folder_->path(), readable));
    QVERIFY(QFile::setPermissions(path_, QFile::Permissions()));
    const OrdinaryUser ordinary;
    QVERIFY(ordinary.isDropped());
    const auto error = errorOf([this] { static_cast<void>(readFile(path_)); });
    QVERIFY(error);
    QCOMPARE(error->number(), ErrorNumber::PermissionDenied);
}

QTEST_APPLESS_MAIN(tst_AtomicFile)
#include "tst_atomicfile.moc"
