#include "editor/JournalFolder.h"

#include "engine/RuntimeError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QUuid>

namespace {

const QString lockSuffix = QStringLiteral(".lock");

/// The lock, if nobody alive holds it.
std::unique_ptr<QLockFile> tryLock(const QString &fileName)
{
    auto lock = std::make_unique<QLockFile>(fileName);
    lock->setStaleLockTime(0); // however long a run lasts, its lock holds
    return lock->tryLock(0) ? std::move(lock) : nullptr;
}

/// A folder's lock is taken before the folder is made, so one without a holder was left behind.
void removeAbandonedFolders(const QDir &parent)
{
    for (const QString &name : parent.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QString folder = parent.filePath(name);
        if (const auto lock = tryLock(folder + lockSuffix))
            QDir(folder).removeRecursively();
    }
}

} // namespace

JournalFolder::JournalFolder(const QString &programFolder, const QString &cacheFolder)
    : path_(programFolder), lock_(tryLock(programFolder + QStringLiteral("/Quillon.lock")))
{
    const QString runs = cacheFolder + QStringLiteral("/Undo");
    removeAbandonedFolders(QDir(runs));
    if (!lock_)
        takeFolderInCache(runs);
}

JournalFolder::~JournalFolder()
{
    if (!ownFolder_.isEmpty())
        QDir(ownFolder_).removeRecursively();
}

void JournalFolder::takeFolderInCache(const QString &runs)
{
    QDir().mkpath(runs);
    path_ = runs + QLatin1Char('/') + QUuid::createUuid().toString(QUuid::WithoutBraces);
    lock_ = tryLock(path_ + lockSuffix);
    if (lock_ && QDir().mkdir(path_)) {
        ownFolder_ = path_;
        QFile::setPermissions(path_, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
}

void JournalFolder::write(const QString &name, QByteArrayView bytes) const
{
    QFile file(path_ + QLatin1Char('/') + name);
    // A leftover may be another user's, or a link that leads elsewhere.
    file.remove();
    if (!file.open(QIODevice::NewOnly | QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        const bool hasFolder = QFileInfo(path_).isDir();
        throw RuntimeError(hasFolder ? ErrorNumber::PathFileAccess : ErrorNumber::PathNotFound,
                           file.fileName());
    }
    if (file.write(bytes.data(), bytes.size()) == bytes.size())
        return;
    file.remove();
    throw RuntimeError(ErrorNumber::DiskFull, file.fileName());
}

QString JournalFolder::entry(const QString &name) const
{
    QFile file(path_ + QLatin1Char('/') + name);
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError(ErrorNumber::PathFileAccess, file.fileName());
    if (file.size() == 0 || !file.seek(file.size() - 1) || file.read(1) != "}")
        throw RuntimeError(ErrorNumber::DeviceIo, file.fileName());
    return file.fileName();
}

void JournalFolder::remove(const QString &pattern) const
{
    QDir folder(path_);
    const QStringList names = folder.entryList({pattern + QStringLiteral(".tmp")},
                                               QDir::Files | QDir::Hidden | QDir::CaseSensitive);
    for (const QString &name : names)
        folder.remove(name);
}
