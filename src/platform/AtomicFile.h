#pragma once

#include <QByteArray>
#include <QString>

/// The one door through which a user's file is written: the bytes go into a new file beside it,
/// are flushed to the disk, and the new file takes the old one's name. Whatever fails, the old file
/// stays whole and no other file remains. Symbolic links are followed and permissions are kept.
///
/// Throws RuntimeError naming the file: PathNotFound if its folder doesn't exist, PathFileAccess
/// if something other than a file has its name, PermissionDenied if it may not be written, DiskFull
/// if the disk takes no more, else PathFileAccess.
void writeFile(const QString &path, QByteArrayView bytes);

/// The bytes of a file. Throws RuntimeError naming the file: PathFileAccess if there is no such
/// file or it is none, PermissionDenied if it may not be read, OutOfMemory if it is larger than
/// `limit` bytes, else DeviceIo.
[[nodiscard]] QByteArray readFile(const QString &path, qint64 limit = qint64(1) << 30);
