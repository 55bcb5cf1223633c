#pragma once

#include <QtGlobal>
#include <string_view>

/// What a control word is about. The comment says what the word's `value` then means.
enum class RtfWordKind : quint8 {
    Known,       ///< taken note of and ignored; makes a starred group no unknown one
    Skip,        ///< its group holds no text of the document
    Destination, ///< RtfDestination: where its group's text goes
    Document,    ///< RtfDocumentWord
    Unicode,     ///< RtfUnicodeWord
    Style,       ///< CharacterStyle, switched on, or off by a parameter of 0
    Character,   ///< RtfCharacterWord
    Paragraph,   ///< RtfParagraphWord
    Alignment,   ///< Qt::AlignmentFlag
    TabType,     ///< QTextOption::TabType of the next tab stop
    Text,        ///< the UTF-16 unit that it stands for
    Structure,   ///< RtfStructureWord
    Table,       ///< RtfTableWord: an entry of the font, colour or list table, or an old bullet
};

enum class RtfDestination : quint8 {
    Body,
    Unread, ///< no text of the document, but groups inside may be
    FontTable,
    ColourTable,
    ListTable,
    ListOverrideTable,
    OldBullet, ///< \pn
    Label,     ///< \listtext, \pntext: what a list writes before its paragraph
    Field,
    FieldInstruction,
    FieldResult,
    UnicodePair,   ///< \upr: a text twice, of which the second is wanted
    UnicodeOfPair, ///< \ud
    TextBox,
    Footnote,
};

enum class RtfDocumentWord : quint8 {
    Ansi,
    Mac,
    Pc,
    Pca,
    CodePage,
    DefaultFont,
};

enum class RtfUnicodeWord : quint8 { Character, FallbackUnits };

enum class RtfCharacterWord : quint8 {
    Plain,
    Font,
    Size,
    Colour,
    Raise,
    Lower,
    Superscript,
    Subscript,
    NoScript,
    NoUnderline,
};

enum class RtfParagraphWord : quint8 {
    Defaults,
    Left,
    FirstLine,
    Right,
    SpaceBefore,
    SpaceAfter,
    TabStop,
    InTable,
    List,
    ListLevel,
};

enum class RtfStructureWord : quint8 {
    Paragraph,
    Section,
    Cell,
    Row,
    NestedRow,
    TableRow,
    FootnoteMark,
};

enum class RtfTableWord : quint8 {
    FontCharset,
    FontCodePage,
    Red,
    Green,
    Blue,
    List,
    ListLevel,
    ListId,
    NumberFormat,
    ListOverride,
    OldBulletMark,
    OldNumber,
    OldIndent,
};

struct RtfControlWord
{
    std::string_view word;
    RtfWordKind kind = RtfWordKind::Known;
    int value = 0;
};

/// The control word of these letters (case matters), null if it is none of those read.
[[nodiscard]] const RtfControlWord *findRtfControlWord(std::string_view word);
