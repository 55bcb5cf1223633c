#pragma once

#include "rtf/RtfControlWords.h"
#include <QHash>
#include <QRgb>
#include <QString>
#include <optional>
#include <vector>

/// A font as a file's font table has it.
struct RtfFont
{
    QString name;
    int charset = 0;
    std::optional<int> codePage; ///< of its bytes; empty for the document's
};

/// \fonttbl. Numbers may be sparse; an entry ends with a semicolon, with or without a group of its
/// own.
class RtfFontTable
{
public:
    /// \fN begins an entry.
    void begin(int number);
    void setCharset(int charset);
    void setCodePage(int codePage);

    /// A piece of the entry's name, with the semicolon that ends it.
    void addName(QStringView text);

    /// The font of that number; else font `otherwise`; else RTF's own default, Times
    /// New Roman.
    [[nodiscard]] const RtfFont &font(int number, int otherwise) const;

    /// The code page of the bytes of the entry's name.
    [[nodiscard]] std::optional<int> codePageOfEntry() const { return entry_.codePage; }

    /// The lowest number of all, for documents that name no default font.
    [[nodiscard]] int firstNumber() const { return firstNumber_; }

private:
    RtfFont entry_;
    int number_ = -1;
    int firstNumber_ = 0;
    QHash<int, RtfFont> fonts_;
};

/// \colortbl
class RtfColourTable
{
public:
    void set(RtfTableWord component, int value);
    void addText(QStringView text);

    /// Empty for the text's own colour, and for colours that are not there.
    [[nodiscard]] std::optional<QRgb> colour(int index) const;

private:
    std::optional<QRgb> entry_;
    std::vector<std::optional<QRgb>> colours_;
};

/// \listtable and \listoverridetable: which lists have bullets.
class RtfListTable
{
public:
    void word(RtfTableWord word, int parameter);
    void overrideWord(RtfTableWord word, int parameter);

    /// \ls in the override table: the number by which paragraphs name the list.
    void nameOverride(int number);

    /// Whether paragraphs of \lsN\ilvlL have bullets: null if there is no such list.
    [[nodiscard]] std::optional<bool> isBullet(int number, int level) const;

private:
    using Levels = std::vector<int>; ///< each level's \levelnfc

    Levels levels_;
    int overriddenList_ = 0;
    QHash<int, Levels> lists_;  ///< by \listid
    QHash<int, int> overrides_; ///< \ls to \listid
};
