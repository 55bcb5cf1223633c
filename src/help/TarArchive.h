#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <optional>
#include <vector>

/// A file in an archive.
struct TarEntry
{
    QString name; ///< with "/" between folders
    QByteArray content;
};

/// The files of a tar archive (POSIX ustar) in their order; folders, links and what else an archive
/// can hold are passed over. Nothing if the bytes are no archive, are cut off, or fail a header's
/// checksum.
[[nodiscard]] std::optional<std::vector<TarEntry>> readTar(QByteArrayView bytes);
