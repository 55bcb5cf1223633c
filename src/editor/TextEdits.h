#pragma once

#include <QString>
#include <span>

class RichTextBox;

/// One replacement in a pane's text. Positions and lengths are those of the text before any change.
struct TextEdit
{
    int start = 0;
    int length = 0;
    QString text;     ///< what the stretch becomes, in the form of a pane's text
    int formatOf = 0; ///< the character that lends its formatting to the new text
};

/// Makes all the changes as one, which is laid out and announced once, however many there are. The
/// edits stand in the order of their places and don't overlap; several at one place are inserted
/// one after the other.
void applyEdits(RichTextBox &pane, std::span<const TextEdit> edits);
