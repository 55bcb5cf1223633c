#include "engine/CodePage.h"

#include <algorithm>
#include <array>

namespace {

// Bytes 80 to 9F (Microsoft's table for code page 1252); all others are the character of their
// number.
constexpr std::array<char16_t, 32> upperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr uchar firstUpperControl = 0x80;
constexpr uchar lastUpperControl = 0x9F;

} // namespace

char16_t codePageCharacter(uchar byte) noexcept
{
    if (byte < firstUpperControl || byte > lastUpperControl)
        return byte;
    return upperControls[byte - firstUpperControl];
}

std::optional<uchar> codePageByte(char16_t character) noexcept
{
    if (character < firstUpperControl || (character > lastUpperControl && character <= 0xFF))
        return static_cast<uchar>(character);
    const auto found = std::ranges::find(upperControls, character);
    if (found == upperControls.end())
        return std::nullopt;
    return static_cast<uchar>(firstUpperControl + (found - upperControls.begin()));
}

QString fromCodePage(QByteArrayView bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    std::ranges::transform(bytes, text.begin(), [](char byte) {
        return QChar(codePageCharacter(static_cast<uchar>(byte)));
    });
    return text;
}

std::optional<QByteArray> toCodePage(QStringView text)
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const QChar character : text) {
        const std::optional<uchar> byte = codePageByte(character.unicode());
        if (!byte)
            return std::nullopt;
        bytes.append(static_cast<char>(*byte));
    }
    return bytes;
}
