#pragma once

#include <QByteArray>
#include <QString>
#include <memory>

class QLockFile;

/// The folder in which this run of the program keeps its journal files, never shared with another
/// run. It is the program's own folder where that can be written and no other run holds it, else a
/// new folder under the user's cache, which goes away with this object. A file beside the entries,
/// or beside the new folder, says who holds it; what crashed runs left in the cache is removed.
class JournalFolder
{
public:
    /// Neither folder needs to exist. If no folder can be had at all, writing will fail.
    JournalFolder(const QString &programFolder, const QString &cacheFolder);
    ~JournalFolder();
    Q_DISABLE_COPY_MOVE(JournalFolder)

    /// Without a separator at its end.
    [[nodiscard]] const QString &path() const { return path_; }

    /// Writes an entry, without waiting for the disk: no entry outlives its run. Throws
    /// RuntimeError naming the file, which is then gone: PathNotFound if the folder has vanished,
    /// PathFileAccess if the file can't be made, DiskFull if it can't be filled.
    void write(const QString &name, QByteArrayView bytes) const;

    /// The full name of an entry that was written completely. Throws RuntimeError naming the file:
    /// PathFileAccess if it is missing, DeviceIo if it lacks its final brace.
    [[nodiscard]] QString entry(const QString &name) const;

    /// Deletes the files that match the pattern followed by ".tmp". What can't be deleted stays.
    void remove(const QString &pattern) const;

private:
    void takeFolderInCache(const QString &runs);

    QString path_;
    QString ownFolder_; ///< the folder to remove at the end; empty for the program's own
    std::unique_ptr<QLockFile> lock_;
};
