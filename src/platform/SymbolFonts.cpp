#include "platform/SymbolFonts.h"

#include "engine/CodePage.h"

#include <QFontDatabase>
#include <QRawFont>
#include <QtEndian>

#include <array>
#include <map>

// A font file (The OpenType Specification, 1.9): a header, a directory of tables sorted by their
// tags, and the tables, each beginning at a multiple of four bytes. All numbers are big-endian.

namespace {

constexpr char32_t symbolArea = 0xF000;
constexpr int firstCode = 0x20;
constexpr int lastCode = 0xFF;

constexpr std::array tableNames = {"BASE", "CFF ", "CFF2", "GDEF", "GPOS", "GSUB", "OS/2", "cvt ",
                                   "fpgm", "gasp", "glyf", "head", "hhea", "hmtx", "kern", "loca",
                                   "maxp", "name", "post", "prep", "vhea", "vmtx"};

class Bytes
{
public:
    template<typename Number> Bytes &put(Number number)
    {
        std::array<char, sizeof(Number)> bytes{};
        qToBigEndian(number, bytes.data());
        bytes_.append(bytes.data(), bytes.size());
        return *this;
    }

    [[nodiscard]] const QByteArray &all() const { return bytes_; }

private:
    QByteArray bytes_;
};

quint16 numberAt(const QByteArray &table, qsizetype offset)
{
    constexpr qsizetype length = sizeof(quint16);
    return offset + length <= table.size() ? qFromBigEndian<quint16>(table.constData() + offset)
                                           : quint16(0);
}

/// Whether a font has a symbol table and nothing that tells of other characters.
bool isSymbolOnly(const QByteArray &characters)
{
    constexpr quint16 unicode = 0;
    constexpr quint16 windows = 3;
    constexpr quint16 symbol = 0;
    constexpr qsizetype headerLength = 4;
    constexpr qsizetype entryLength = 8;
    bool hasSymbols = false;
    for (int i = 0; i < numberAt(characters, 2); ++i) {
        const qsizetype entry = headerLength + i * entryLength;
        const quint16 platform = numberAt(characters, entry);
        const bool isSymbol = platform == windows && numberAt(characters, entry + 2) == symbol;
        if (platform == unicode || (platform == windows && !isSymbol))
            return false;
        hasSymbols = hasSymbols || isSymbol;
    }
    return hasSymbols;
}

/// The glyphs of a symbol table, under the characters of code page 1252 and those of the area.
std::map<char32_t, quint32> glyphsOf(const QRawFont &font)
{
    std::map<char32_t, quint32> glyphs;
    for (int code = firstCode; code <= lastCode; ++code) {
        const char32_t symbol = symbolArea + char32_t(code);
        if (!font.supportsCharacter(symbol))
            continue;
        const quint32 glyph = font.glyphIndexesForString(QChar(char16_t(symbol))).value(0);
        glyphs[symbol] = glyph;
        glyphs[codePageCharacter(static_cast<uchar>(code))] = glyph;
    }
    return glyphs;
}

/// A table of characters with one subtable, for full Unicode (format 12).
QByteArray characterTable(const std::map<char32_t, quint32> &glyphs)
{
    constexpr quint16 windows = 3;
    constexpr quint16 fullUnicode = 10;
    constexpr quint32 headerLength = 12;
    constexpr quint16 segments = 12;
    constexpr quint32 segmentsHeader = 16;
    constexpr quint32 segmentLength = 12;
    const auto count = static_cast<quint32>(glyphs.size());
    Bytes table;
    table.put<quint16>(0).put<quint16>(1).put(windows).put(fullUnicode).put(headerLength);
    table.put(segments).put<quint16>(0).put(segmentsHeader + count * segmentLength);
    table.put<quint32>(0).put(count);
    for (const auto &[character, glyph] : glyphs)
        table.put<quint32>(character).put<quint32>(character).put(glyph);
    return table.all();
}

QByteArray fontFile(const std::map<QByteArray, QByteArray> &tables)
{
    constexpr quint32 headerLength = 12;
    constexpr quint32 entryLength = 16;
    constexpr quint32 trueType = 0x00010000;
    constexpr quint32 openType = 0x4F54544F; // "OTTO": the outlines are in the table CFF
    const bool hasCurves = tables.contains("CFF ") || tables.contains("CFF2");
    const auto count = static_cast<quint16>(tables.size());
    Bytes directory;
    // How to search the directory by halves, and its checksums, are read by nobody.
    directory.put(hasCurves ? openType : trueType).put(count);
    directory.put<quint16>(0).put<quint16>(0).put<quint16>(0);
    quint32 offset = headerLength + count * entryLength;
    QByteArray content;
    for (const auto &[tag, table] : tables) {
        const auto length = static_cast<quint32>(table.size());
        directory.put(qFromBigEndian<quint32>(tag.constData())).put<quint32>(0);
        directory.put(offset + static_cast<quint32>(content.size())).put(length);
        content += table;
        content.append((4 - length % 4) % 4, '\0');
    }
    return directory.all() + content;
}

} // namespace

QByteArray withCodePage(const QRawFont &font)
{
    const std::map<char32_t, quint32> glyphs = glyphsOf(font);
    if (!isSymbolOnly(font.fontTable("cmap")) || glyphs.empty())
        return {};
    std::map<QByteArray, QByteArray> tables = {{"cmap", characterTable(glyphs)}};
    for (const char *name : tableNames) {
        const QByteArray table = font.fontTable(name);
        if (!table.isEmpty())
            tables[name] = table;
    }
    return tables.contains("head") ? fontFile(tables) : QByteArray();
}

void showCodePageInSymbolFonts()
{
    constexpr int anySize = 12;
    for (const QString &family : QFontDatabase::families()) {
        if (QFontDatabase::writingSystems(family) != QList{QFontDatabase::Symbol})
            continue;
        for (const QString &style : QFontDatabase::styles(family)) {
            const QFont font = QFontDatabase::font(family, style, anySize);
            const QByteArray copy = withCodePage(QRawFont::fromFont(font));
            if (!copy.isEmpty())
                QFontDatabase::addApplicationFontFromData(copy);
        }
    }
}
