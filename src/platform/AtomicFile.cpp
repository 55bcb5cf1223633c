#include "platform/AtomicFile.h"

#include "engine/RuntimeError.h"
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {

[[noreturn]] void fail(const QFileDevice &file, const QString &path)
{
    const QFileInfo folder(QFileInfo(path).absolutePath());
    if (!folder.isDir())
        throw RuntimeError(ErrorNumber::PathNotFound, path);
    switch (file.error()) {
    case QFileDevice::PermissionsError:
        throw RuntimeError(ErrorNumber::PermissionDenied, path);
    case QFileDevice::WriteError:
    case QFileDevice::ResourceError:
        throw RuntimeError(ErrorNumber::DiskFull, path);
    default:
        throw RuntimeError(ErrorNumber::PathFileAccess, path);
    }
}

} // namespace

void writeFile(const QString &path, QByteArrayView bytes)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(bytes.data(), bytes.size()) != bytes.size() || !file.commit())
        fail(file, path);
}

QByteArray readFile(const QString &path, qint64 limit)
{
    QFile file(path);
    if (!QFileInfo(path).isFile())
        throw RuntimeError(ErrorNumber::PathFileAccess, path);
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError(ErrorNumber::PermissionDenied, path);
    QByteArray bytes = file.read(limit + 1);
    if (bytes.size() > limit)
        throw RuntimeError(ErrorNumber::OutOfMemory, path);
    if (file.error() != QFileDevice::NoError)
        throw RuntimeError(ErrorNumber::DeviceIo, path);
    return bytes;
}
