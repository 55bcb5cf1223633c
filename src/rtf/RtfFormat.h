#pragma once

#include <QFlags>
#include <QFont>
#include <QList>
#include <QRgb>
#include <QString>
#include <QTextFormat>
#include <QTextOption>
#include <optional>

class QTextBlock;
class QTextCursor;
class QTextDocument;
class QTextList;

/// How a document that RTF can hold lives in a QTextDocument.
///
/// - A paragraph is a block. A soft line break is U+2028 and a page break U+000C, each one
///   character of its block's text. U+000C draws as nothing; applyPageBreaks() makes it break
///   pages.
/// - U+00A0 and U+00AD are characters like any other. Text layout hides U+00AD, so that a
///   document that is shown may hold U+FFFC in its place; it is written as U+00AD.
/// - Lengths are kept in twips (1/20 point) in properties of our own, so that they come back as
///   they were set. The properties that Qt lays out by are derived from them and never read back.
/// - A bullet is a property of its paragraph. Paragraphs with bullets also belong to some
///   QTextList, which draws the discs; to which of them means nothing.
///
/// CharacterFormat and ParagraphFormat are the only places that know these properties.

/// Twips to a pixel of layout, at 96 dpi.
inline constexpr int twipsPerPixel = 15;

enum class Script : quint8 { Baseline, Superscript, Subscript };

enum class CharacterStyle : quint8 {
    Bold = 0x01,
    Italic = 0x02,
    Underline = 0x04,
    StrikeOut = 0x08,
    AllCapitals = 0x10,
    SmallCapitals = 0x20,
    Hidden = 0x40,  ///< kept and shown
    Deleted = 0x80, ///< a tracked deletion; kept and shown
};
Q_DECLARE_FLAGS(CharacterStyles, CharacterStyle)
Q_DECLARE_OPERATORS_FOR_FLAGS(CharacterStyles)

/// The attributes of a character.
struct CharacterFormat
{
    QString family;
    int charset = 0;     ///< the font's character set as RTF numbers it; 2 = symbol
    int halfPoints = 24; ///< the font's size
    int offset = 0;      ///< twips; positive raises. RTF keeps multiples of 10
    Script script = Script::Baseline;
    CharacterStyles styles;
    std::optional<QRgb> colour; ///< empty for the text's own

    bool operator==(const CharacterFormat &) const = default;

    /// The attributes of `format`; where it names no font or size, those of `defaults`.
    [[nodiscard]] static CharacterFormat of(const QTextCharFormat &format, const QFont &defaults);

    /// Sets all attributes of `format`.
    void applyTo(QTextCharFormat &format) const;

    /// Whether bytes of this font are glyph numbers, which Unicode holds at U+F000 and up. A
    /// Tengwar font's never are: they stand for the characters of code page 1252.
    [[nodiscard]] bool isSymbolFont() const;
};

size_t qHash(const CharacterFormat &format, size_t seed = 0) noexcept;

/// Whether a font of this name is a Tengwar font, whose text is kept as the characters of code page
/// 1252 whatever its character set.
[[nodiscard]] bool isTengwarFont(const QString &family);

struct TabStop
{
    int position = 0; ///< twips from the page's margin
    QTextOption::TabType type = QTextOption::LeftTab;

    bool operator==(const TabStop &) const = default;
};

/// The attributes of a paragraph. Lengths are in twips.
struct ParagraphFormat
{
    int left = 0;      ///< of the lines after the first
    int firstLine = 0; ///< relative to `left`
    int right = 0;
    int spaceBefore = 0;
    int spaceAfter = 0;
    int bulletIndent = 0; ///< from the bullet to the text; kept also while `bullet` is off
    bool bullet = false;
    Qt::Alignment alignment = Qt::AlignLeft;
    QList<TabStop> tabs;

    bool operator==(const ParagraphFormat &) const = default;

    [[nodiscard]] static ParagraphFormat of(const QTextBlockFormat &format);

    /// Sets all attributes of `format` except its membership in a list; see applyParagraphFormat.
    void applyTo(QTextBlockFormat &format) const;

private:
    /// The left edge of the lines after the first, as laid out.
    [[nodiscard]] int textEdge() const;
};

/// Gives a format to all paragraphs that the cursor's selection touches; its bullet appears or
/// goes.
void applyParagraphFormat(QTextCursor cursor, const ParagraphFormat &format);

/// Lets the cursor's paragraph have its disc drawn: by `list` if that has room, else by a new one.
/// Returns the list taken.
QTextList *drawBullet(QTextCursor cursor, QTextList *list);

/// For a copy to be printed: starts a new page after each U+000C.
void applyPageBreaks(QTextDocument &copy);
