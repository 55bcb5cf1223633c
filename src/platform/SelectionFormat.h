#pragma once

#include "rtf/RtfFormat.h"
#include <QTextCursor>
#include <functional>
#include <optional>

/// The alignments of a paragraph, by their number in commands and dialogs.
enum class Alignment { Left = 0, Right = 1, Center = 2 };

/// The attributes of a selection. Each is empty where the selected characters or paragraphs differ.
/// Characters are those selected, or the next one typed where none is; paragraphs are all that the
/// selection touches, but for one at whose very start it ends. Lengths are in twips.
struct SelectionFormat
{
    std::optional<QString> fontName;
    std::optional<double> fontSize; ///< in points
    std::optional<bool> bold;
    std::optional<bool> italic;
    std::optional<bool> underline;
    std::optional<int> charOffset; ///< of the baseline; positive raises
    std::optional<Alignment> alignment;
    std::optional<bool> bullet;
    std::optional<int> indent;        ///< left edge of the first line
    std::optional<int> hangingIndent; ///< left edge of the other lines, relative to the first line
    std::optional<int> rightIndent;
    std::optional<int> bulletIndent;

    bool operator==(const SelectionFormat &) const = default;
};

/// Reads every character and paragraph that the cursor selects. Each format that occurs is looked
/// at once, so that the time hardly grows with their number.
[[nodiscard]] SelectionFormat selectionFormat(const QTextCursor &cursor);

/// Changes each selected character's attributes, and those of the paragraph ends in between. Where
/// nothing is selected nothing changes; see insertionFormat.
void changeCharacters(const QTextCursor &cursor,
                      const std::function<void(CharacterFormat &)> &change);

/// Changes the attributes of each paragraph that the selection touches.
void changeParagraphs(const QTextCursor &cursor,
                      const std::function<void(ParagraphFormat &)> &change);

/// The format of what would replace the selection: that of its first character, or that at the
/// caret.
[[nodiscard]] QTextCharFormat insertionFormat(const QTextCursor &cursor);

/// The format of a document's first character, or of what would be typed into it if it is empty.
[[nodiscard]] QTextCharFormat firstFormat(const QTextDocument &document);

/// Where the cursor's paragraph has become empty, makes what is typed into it look as `format`; a
/// document itself forgets the look of deleted text.
void keepFormatOfEmptyParagraph(QTextCursor &cursor, const QTextCharFormat &format);
