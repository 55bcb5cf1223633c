#include "editor/TextEdits.h"

#include "platform/RichTextBox.h"

#include <QTextCursor>
#include <vector>

void applyEdits(RichTextBox &pane, std::span<const TextEdit> edits)
{
    QTextCursor cursor(pane.document());
    const auto moveTo = [&](int position, QTextCursor::MoveMode mode = QTextCursor::MoveAnchor) {
        cursor.setPosition(documentPosition(*pane.document(), position), mode);
    };
    std::vector<QTextCharFormat> formats;
    formats.reserve(edits.size());
    for (const TextEdit &edit : edits) {
        moveTo(edit.formatOf);
        cursor.movePosition(QTextCursor::NextCharacter);
        formats.push_back(cursor.charFormat());
    }
    cursor.beginEditBlock();
    // From the end, so that what is still to be changed stays where it was.
    for (auto edit = edits.rbegin(); edit != edits.rend(); ++edit) {
        moveTo(edit->start);
        moveTo(edit->start + edit->length, QTextCursor::KeepAnchor);
        cursor.insertText(documentText(edit->text), formats.back());
        formats.pop_back();
    }
    cursor.endEditBlock();
}
