#pragma once

#include <QByteArray>
#include <QCryptographicHash>
#include <QList>
#include <QPair>

using TarFiles = QList<QPair<QByteArray, QByteArray>>; ///< names and contents

/// A header of the archive, with a true checksum.
inline QByteArray tarHeader(const QByteArray &name, qsizetype size, char type = '0')
{
    QByteArray header(512, '\0');
    const auto put = [&header](qsizetype offset, const QByteArray &text) {
        header.replace(offset, text.size(), text);
    };
    put(0, name);
    put(124, QByteArray::number(size, 8).rightJustified(11, '0'));
    put(148, QByteArray(8, ' '));
    put(156, QByteArray(1, type));
    put(257, QByteArray("ustar\0"
                        "00",
                        8));
    int sum = 0;
    for (const char byte : std::as_const(header))
        sum += static_cast<unsigned char>(byte);
    put(148, QByteArray::number(sum, 8).rightJustified(6, '0') + QByteArray("\0 ", 2));
    return header;
}

inline QByteArray tarEntry(const QByteArray &name, const QByteArray &content)
{
    const qsizetype filled = (content.size() + 511) / 512 * 512;
    return tarHeader(name, content.size()) + content.leftJustified(filled, '\0');
}

inline QByteArray tarBytes(const TarFiles &files)
{
    QByteArray bytes;
    for (const auto &[name, content] : files)
        bytes += tarEntry(name, content);
    return bytes + QByteArray(1024, '\0');
}

/// A help file: the archive with the listing of sums at its end.
inline QByteArray helpBytes(TarFiles files)
{
    QByteArray sums;
    for (const auto &[name, content] : std::as_const(files))
        sums += QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex() + "  " +
                name + '\n';
    files.emplaceBack("SHA256SUMS", sums);
    return tarBytes(files);
}
