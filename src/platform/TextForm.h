#pragma once

#include <QByteArray>
#include <QString>

/// How a file of plain text codes its characters.
enum class TextCoding {
    Utf8,
    Utf8WithMark,
    Utf16LittleEndian, ///< with a byte order mark
    Utf16BigEndian,    ///< with a byte order mark
    CodePage1252,
};

enum class LineEnds { CrLf, Lf, Cr };

/// How a file holds a text, so that it can be saved as it was opened.
struct TextForm
{
    TextCoding coding = TextCoding::Utf8;
    LineEnds lineEnds = LineEnds::CrLf;

    bool operator==(const TextForm &) const = default;
};

/// The text of a file, its line ends as they stand in it, and the form that the file has.
struct DecodedText
{
    QString text;
    TextForm form;
};

/// Tells the coding by the byte order mark, if there is one; without a mark, bytes that are valid
/// UTF-8 are that, and others code page 1252. The first line end tells the form of all. What the
/// bytes leave open, since they are all ASCII or a single line, is taken from `otherwise`.
[[nodiscard]] DecodedText decodeText(QByteArrayView bytes, const TextForm &otherwise);

/// The bytes of a text (any line ends) in that form. Where these would not read back as the same
/// text, since a character lies outside code page 1252 or its bytes happen to be UTF-8, the text is
/// given as UTF-8 with a mark; no character is ever replaced.
[[nodiscard]] QByteArray encodeText(const QString &text, const TextForm &form);
