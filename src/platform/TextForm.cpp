#include "platform/TextForm.h"

#include "engine/CodePage.h"
#include "rtf/RtfReader.h"
#include <QStringConverter>
#include <algorithm>
#include <array>
#include <optional>

namespace {

struct Mark
{
    TextCoding coding;
    QByteArrayView bytes;
};

constexpr std::array<Mark, 3> marks = {{{TextCoding::Utf8WithMark, "\xEF\xBB\xBF"},
                                        {TextCoding::Utf16LittleEndian, "\xFF\xFE"},
                                        {TextCoding::Utf16BigEndian, "\xFE\xFF"}}};

QByteArrayView markOf(TextCoding coding)
{
    const auto mark = std::find_if(marks.begin(), marks.end(),
                                   [coding](const Mark &each) { return each.coding == coding; });
    return mark != marks.end() ? mark->bytes : QByteArrayView();
}

bool isAscii(QByteArrayView bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char byte) { return uchar(byte) < 0x80; });
}

TextCoding codingOf(QByteArrayView bytes, TextCoding otherwise)
{
    const bool isUtf8 = bytes.isValidUtf8();
    for (const Mark &mark : marks) {
        // malformed UTF-8 is kept byte by byte, as it is without a mark
        if (bytes.startsWith(mark.bytes) && (isUtf8 || mark.coding != TextCoding::Utf8WithMark))
            return mark.coding;
    }
    if (isAscii(bytes) && (otherwise == TextCoding::Utf8 || otherwise == TextCoding::CodePage1252))
        return otherwise;
    return isUtf8 ? TextCoding::Utf8 : TextCoding::CodePage1252;
}

QStringConverter::Encoding unicodeOf(TextCoding coding)
{
    switch (coding) {
    case TextCoding::Utf16LittleEndian:
        return QStringConverter::Utf16LE;
    case TextCoding::Utf16BigEndian:
        return QStringConverter::Utf16BE;
    default:
        return QStringConverter::Utf8;
    }
}

LineEnds lineEndsOf(const QString &text, LineEnds otherwise)
{
    const auto first = std::find_if(text.begin(), text.end(),
                                    [](QChar each) { return each == u'\r' || each == u'\n'; });
    if (first == text.end())
        return otherwise;
    if (*first == u'\n')
        return LineEnds::Lf;
    return first + 1 != text.end() && first[1] == u'\n' ? LineEnds::CrLf : LineEnds::Cr;
}

QString withLineEnds(QString text, LineEnds lineEnds)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(u'\r', u'\n');
    if (lineEnds == LineEnds::Lf)
        return text;
    const auto end = lineEnds == LineEnds::Cr ? QStringLiteral("\r") : QStringLiteral("\r\n");
    return text.replace(QStringLiteral("\n"), end);
}

std::optional<QByteArray> encoded(const QString &text, TextCoding coding)
{
    if (coding == TextCoding::CodePage1252)
        return toCodePage(text);
    QStringEncoder encoder(unicodeOf(coding), QStringConverter::Flag::Stateless);
    const QByteArray bytes = encoder.encode(text);
    return encoder.hasError() ? std::nullopt : std::optional(markOf(coding).toByteArray() + bytes);
}

} // namespace

DecodedText decodeText(QByteArrayView bytes, const TextForm &otherwise)
{
    DecodedText result;
    result.form.coding = codingOf(bytes, otherwise.coding);
    const QByteArrayView content = bytes.sliced(markOf(result.form.coding).size());
    if (result.form.coding == TextCoding::CodePage1252)
        result.text = fromCodePage(content);
    else
        result.text =
            QStringDecoder(unicodeOf(result.form.coding), QStringConverter::Flag::ConvertInitialBom)
                .decode(content);
    result.form.lineEnds = lineEndsOf(result.text, otherwise.lineEnds);
    return result;
}

QByteArray encodeText(const QString &text, const TextForm &form)
{
    const QString lines = withLineEnds(text, form.lineEnds);
    for (const TextCoding coding : {form.coding, TextCoding::Utf8WithMark}) {
        const std::optional<QByteArray> bytes = encoded(lines, coding);
        if (bytes && !looksLikeRtf(*bytes) && decodeText(*bytes, form).text == lines)
            return *bytes;
    }
    return encoded(lines, TextCoding::Utf16LittleEndian).value_or(QByteArray());
}
