#include "rtf/RtfCodePages.h"

#include <algorithm>
#include <cerrno>
#include <iconv.h>
#include <iterator>
#include <utility>

namespace {

/// The characters of bytes 80 to 9F in code page 1252; all others are as in Latin-1.
constexpr std::array<char16_t, 32> latinHigh{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

constexpr char16_t symbolBase = 0xF000;
constexpr char16_t replacement = 0xFFFD;

/// An open conversion of the C library from some encoding to UTF-16, if it has that.
class Conversion
{
public:
    explicit Conversion(const char *encoding) : handle_(iconv_open("UTF-16LE", encoding)) {}
    ~Conversion()
    {
        if (isOpen())
            iconv_close(handle_);
    }
    Conversion(Conversion &&other) noexcept : handle_(std::exchange(other.handle_, failed())) {}
    Conversion &operator=(Conversion &&other) noexcept
    {
        std::swap(handle_, other.handle_);
        return *this;
    }

    [[nodiscard]] bool isOpen() const { return handle_ != failed(); }

    /// Each byte that can't be part of a character becomes U+FFFD.
    [[nodiscard]] QString convert(QByteArrayView bytes)
    {
        QString result;
        char *input = const_cast<char *>(bytes.data()); // iconv only reads it
        auto inputLeft = static_cast<size_t>(bytes.size());
        iconv(handle_, nullptr, nullptr, nullptr, nullptr);
        while (inputLeft > 0) {
            if (step(&input, &inputLeft, result) || errno == E2BIG)
                continue;
            result.append(QChar(replacement));
            ++input;
            --inputLeft;
        }
        step(nullptr, nullptr, result); // a letter may be held back, for a mark to combine with
        return result;
    }

private:
    static iconv_t failed()
    {
        return reinterpret_cast<iconv_t>(-1); // NOLINT(performance-no-int-to-ptr)
    }

    /// Converts as much as possible of a piece; errno tells what stopped it.
    bool step(char **input, size_t *inputLeft, QString &result)
    {
        std::array<char16_t, 1024> buffer{};
        auto *output = reinterpret_cast<char *>(buffer.data());
        size_t outputLeft = sizeof(buffer);
        const size_t done = iconv(handle_, input, inputLeft, &output, &outputLeft);
        const size_t units = (sizeof(buffer) - outputLeft) / sizeof(char16_t);
        result.append(QStringView(buffer.data(), static_cast<qsizetype>(units)));
        return done != static_cast<size_t>(-1);
    }

    iconv_t handle_;
};

struct Encoding
{
    int codePage;
    const char *name;
};

/// Pages that the C library knows by another name than CP and the number.
constexpr auto encodings = std::to_array<Encoding>({
    {819, "ISO-8859-1"},
    {RtfCodePage::macRoman, "MACINTOSH"},
    {10001, "CP932"},
    {10002, "BIG5"},
    {10003, "EUC-KR"},
    {10007, "MAC-CYRILLIC"},
    {10008, "GB2312"},
    {10029, "MAC-CENTRALEUROPE"},
    {20866, "KOI8-R"},
    {21866, "KOI8-U"},
    {28591, "ISO-8859-1"},
    {28592, "ISO-8859-2"},
    {28595, "ISO-8859-5"},
    {28597, "ISO-8859-7"},
    {28599, "ISO-8859-9"},
    {28605, "ISO-8859-15"},
    {50220, "ISO-2022-JP"},
    {51932, "EUC-JP"},
    {51949, "EUC-KR"},
    {54936, "GB18030"},
    {RtfCodePage::utf8, "UTF-8"},
});

Conversion openConversion(int codePage)
{
    const auto *found = std::find_if(encodings.begin(), encodings.end(),
                                     [=](const Encoding &e) { return e.codePage == codePage; });
    if (found != encodings.end())
        return Conversion(found->name);
    return Conversion(QByteArray("CP" + QByteArray::number(codePage)).constData());
}

bool isMultiByte(int codePage)
{
    constexpr std::array pages{932,   936,   949,   950,   1361,  10001, 10002,
                               10003, 10008, 50220, 51932, 51949, 54936, RtfCodePage::utf8};
    return std::find(pages.begin(), pages.end(), codePage) != pages.end();
}

struct CharsetPage
{
    int charset;
    int codePage;
};

constexpr auto charsetPages = std::to_array<CharsetPage>({
    {0, 1252},
    {2, RtfCodePage::symbol},
    {77, RtfCodePage::macRoman},
    {78, 10001},
    {79, 10003},
    {80, 10008},
    {81, 10002},
    {88, 10029},
    {89, 10007},
    {128, 932},
    {129, 949},
    {130, 1361},
    {134, 936},
    {136, 950},
    {161, 1253},
    {162, 1254},
    {163, 1258},
    {177, 1255},
    {178, 1256},
    {186, 1257},
    {204, 1251},
    {222, 874},
    {238, 1250},
    {254, 437},
    {255, 850},
});

} // namespace

struct RtfDecoder::Page
{
    std::optional<Table> table;           ///< of a page of single bytes
    std::optional<Conversion> conversion; ///< of any other
};

std::optional<int> RtfCodePage::ofCharset(int charset)
{
    const auto *found = std::find_if(charsetPages.begin(), charsetPages.end(),
                                     [=](const CharsetPage &p) { return p.charset == charset; });
    if (found == charsetPages.end())
        return std::nullopt;
    return found->codePage;
}

std::optional<uchar> RtfCodePage::latinByte(char16_t character)
{
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF))
        return static_cast<uchar>(character);
    const auto *found = std::find(latinHigh.begin(), latinHigh.end(), character);
    if (found == latinHigh.end())
        return std::nullopt;
    return static_cast<uchar>(0x80 + std::distance(latinHigh.begin(), found));
}

char16_t RtfCodePage::latinCharacter(uchar byte)
{
    return byte >= 0x80 && byte < 0xA0 ? latinHigh[byte - 0x80U] : char16_t(byte);
}

RtfDecoder::RtfDecoder() = default;
RtfDecoder::~RtfDecoder() = default;

RtfDecoder::Page &RtfDecoder::page(int codePage)
{
    std::unique_ptr<Page> &slot = pages_[codePage];
    if (slot)
        return *slot;
    slot = std::make_unique<Page>();
    std::optional<Conversion> conversion;
    if (codePage != RtfCodePage::latin && codePage != RtfCodePage::symbol)
        conversion = openConversion(codePage);
    if (conversion && conversion->isOpen() && isMultiByte(codePage)) {
        slot->conversion = std::move(conversion);
        return *slot;
    }
    slot->table.emplace();
    for (int i = 0; i < 256; ++i) {
        const char byte = static_cast<char>(i);
        char16_t &character = (*slot->table)[static_cast<size_t>(i)];
        if (codePage == RtfCodePage::symbol)
            character = i > 0x20 ? char16_t(symbolBase + i) : char16_t(i);
        else if (conversion && conversion->isOpen())
            character = conversion->convert(QByteArrayView(&byte, 1)).at(0).unicode();
        else
            character = RtfCodePage::latinCharacter(static_cast<uchar>(i));
        if (character == replacement && i < 0xA0)
            character = char16_t(i); // as Windows has its unassigned bytes
    }
    return *slot;
}

QString RtfDecoder::decode(QByteArrayView bytes, int codePage)
{
    Page &from = page(codePage);
    if (from.conversion)
        return from.conversion->convert(bytes);
    QString result(bytes.size(), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), result.begin(),
                   [&](char byte) { return QChar((*from.table)[static_cast<uchar>(byte)]); });
    return result;
}
