#pragma once

#include <QByteArrayView>
#include <QString>
#include <array>
#include <map>
#include <memory>
#include <optional>

/// Code pages by their Windows numbers, and two that have none.
struct RtfCodePage
{
    static constexpr int latin = 1252; ///< its unassigned bytes are U+0081, 008D, 008F, 0090, 009D
    static constexpr int macRoman = 10000;
    static constexpr int utf8 = 65001;
    static constexpr int symbol = 42; ///< byte b is U+F000 + b, a space excepted

    /// The code page of a font's character set (RTF 1.9, \fcharset); empty if it implies none.
    [[nodiscard]] static std::optional<int> ofCharset(int charset);

    /// The byte that is this character in the Latin page.
    [[nodiscard]] static std::optional<uchar> latinByte(char16_t character);

    /// The character that is this byte in the Latin page.
    [[nodiscard]] static char16_t latinCharacter(uchar byte);
};

/// Decodes bytes of any code page that the C library knows. Bytes that are nothing in a page become
/// U+FFFD; a page that is unknown is taken for the Latin one.
class RtfDecoder
{
public:
    RtfDecoder();
    ~RtfDecoder();
    Q_DISABLE_COPY_MOVE(RtfDecoder)

    [[nodiscard]] QString decode(QByteArrayView bytes, int codePage);

private:
    using Table = std::array<char16_t, 256>;
    struct Page;

    [[nodiscard]] Page &page(int codePage);

    std::map<int, std::unique_ptr<Page>> pages_;
};
