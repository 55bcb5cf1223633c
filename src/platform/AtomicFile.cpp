#include "platform/AtomicFile.h"

#include "engine/RuntimeError.h"
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {

/// Why the file could not be written, as far as the system tells.
ErrorNumber writeFailure(const QFileDevice &file, const QString &path)
{
    const QFileInfo target(path);
    const QFileInfo folder(target.absolutePath());
    if (!folder.isDir())
        return ErrorNumber::PathNotFound;
    if (!folder.isWritable() || (target.exists() && !target.isWritable()))
        return ErrorNumber::PermissionDenied;
    const bool isFull =
        file.error() == QFileDevice::ResourceError || file.error() == QFileDevice::WriteError;
    return isFull ? ErrorNumber::DiskFull : ErrorNumber::PathFileAccess;
}

/// Writes in as many goes as it takes: a disk that fills up takes part of the first one, and only
/// the next tells why.
bool writeAll(QSaveFile &file, QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const qint64 written = file.write(bytes.data(), bytes.size());
        if (written <= 0)
            return false;
        bytes = bytes.sliced(written);
    }
    return true;
}

} // namespace

void writeFile(const QString &path, QByteArrayView bytes)
{
    const QFileInfo target(path);
    if (target.exists() && !target.isFile()) // the new file would take a device's place
        throw RuntimeError(ErrorNumber::PathFileAccess, path);
    QSaveFile file(path);
    // commit() forgets why the last bytes could not be written, so they are written before it.
    if (!file.open(QIODevice::WriteOnly) || !writeAll(file, bytes) || !file.flush() ||
        !file.commit())
        throw RuntimeError(writeFailure(file, path), path);
}

QByteArray readFile(const QString &path, qint64 limit)
{
    QFile file(path);
    if (!QFileInfo(path).isFile())
        throw RuntimeError(ErrorNumber::PathFileAccess, path);
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError(ErrorNumber::PermissionDenied, path);
    if (file.size() > limit)
        throw RuntimeError(ErrorNumber::OutOfMemory, path);
    QByteArray bytes = file.readAll(); // read() would make room for all of the limit
    if (file.error() != QFileDevice::NoError)
        throw RuntimeError(ErrorNumber::DeviceIo, path);
    return bytes;
}
