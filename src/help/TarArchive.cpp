#include "help/TarArchive.h"

#include <algorithm>

// An archive is a row of blocks of 512 bytes: for each file a header and then its content, filled
// up to whole blocks; a block of zeros ends it. Numbers in a header are octal digits, ended by a
// blank or a zero. The checksum is the sum of the header's bytes, its own field taken as blanks.

namespace {

constexpr qsizetype BlockSize = 512;

struct Field
{
    qsizetype offset;
    qsizetype length;
};

constexpr Field Name{0, 100};
constexpr Field Size{124, 12};
constexpr Field Checksum{148, 8};
constexpr Field Type{156, 1};
constexpr Field Magic{257, 5};

QByteArrayView field(QByteArrayView header, Field which)
{
    const QByteArrayView bytes = header.sliced(which.offset, which.length);
    return bytes.first(std::find(bytes.begin(), bytes.end(), '\0') - bytes.begin());
}

std::optional<qint64> octal(QByteArrayView digits)
{
    bool isNumber = false;
    const qint64 number = digits.trimmed().toByteArray().toLongLong(&isNumber, 8);
    return isNumber && number >= 0 ? std::optional(number) : std::nullopt;
}

bool isIntact(QByteArrayView header)
{
    qint64 sum = Checksum.length * qint64(' ');
    for (qsizetype i = 0; i < header.size(); ++i) {
        const bool isOwn = i >= Checksum.offset && i < Checksum.offset + Checksum.length;
        sum += isOwn ? 0 : static_cast<unsigned char>(header[i]);
    }
    return field(header, Magic) == "ustar" && octal(field(header, Checksum)) == sum;
}

bool isFile(QByteArrayView header)
{
    const char type = header[Type.offset];
    return type == '0' || type == '\0';
}

bool isZero(QByteArrayView block)
{
    return std::all_of(block.begin(), block.end(), [](char byte) { return byte == '\0'; });
}

} // namespace

std::optional<std::vector<TarEntry>> readTar(QByteArrayView bytes)
{
    std::vector<TarEntry> entries;
    while (bytes.size() >= BlockSize) {
        const QByteArrayView header = bytes.first(BlockSize);
        if (isZero(header))
            return entries;
        bytes = bytes.sliced(BlockSize);
        const std::optional<qint64> size = octal(field(header, Size));
        if (!isIntact(header) || !size || *size > bytes.size())
            return std::nullopt;
        if (isFile(header))
            entries.push_back(
                {QString::fromUtf8(field(header, Name)), bytes.first(*size).toByteArray()});
        const qsizetype filled = (*size + BlockSize - 1) / BlockSize * BlockSize;
        bytes = bytes.sliced(std::min(filled, bytes.size()));
    }
    return std::nullopt;
}
