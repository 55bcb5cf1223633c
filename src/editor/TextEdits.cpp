#include "editor/TextEdits.h"

#include "platform/RichTextBox.h"
#include "platform/SelectionFormat.h"
#include "platform/TextPosition.h"

#include <QTextBlock>
#include <QTextCursor>
#include <vector>

namespace {

/// Finds, for places of a document in ascending order, the stretch of one formatting around them.
class FormatWalk
{
public:
    explicit FormatWalk(const QTextDocument &document) : document_(document) {}

    /// An invalid one where a paragraph ends.
    QTextFragment fragmentAt(int position)
    {
        if (!block_.contains(position)) {
            block_ = document_.findBlock(position);
            fragment_ = block_.begin();
            text_ = block_.text();
        }
        while (!fragment_.atEnd() && !fragment_.fragment().contains(position))
            ++fragment_;
        return fragment_.atEnd() ? QTextFragment() : fragment_.fragment();
    }

    /// Text of the paragraph last looked at.
    [[nodiscard]] QStringView text(int start, int end) const
    {
        return QStringView(text_).sliced(start - block_.position(), end - start);
    }

private:
    const QTextDocument &document_;
    QTextBlock block_;
    QTextBlock::iterator fragment_;
    QString text_;
};

/// What becomes of a stretch of the document.
struct Rewriting
{
    int start = 0;
    int end = 0;
    QString text;
    QTextCharFormat format;
    QTextFragment within; ///< the fragment that all of it lies in, if it does
};

/// The format of what would replace the character at a position of the document.
QTextCharFormat formatAt(QTextDocument &document, int position)
{
    QTextCursor cursor(&document);
    cursor.setPosition(position);
    cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
    return insertionFormat(cursor);
}

/// Joins edits within one fragment, with the text between them: a document that is changed in
/// thousands of places falls into as many pieces and becomes slow.
std::vector<Rewriting> rewritings(QTextDocument &document, std::span<const TextEdit> edits)
{
    std::vector<Rewriting> all;
    FormatWalk walk(document);
    for (const TextEdit &edit : edits) {
        const int start = documentPosition(document, edit.start);
        const int end = documentPosition(document, edit.start + edit.length);
        const int lender = documentPosition(document, edit.formatOf);
        const QTextFragment fragment = walk.fragmentAt(lender);
        const QString text = documentText(edit.text);
        if (!fragment.isValid()) {
            all.push_back({start, end, text, formatAt(document, lender), {}});
            continue;
        }
        const int fragmentEnd = fragment.position() + fragment.length();
        const bool isWithin = start >= fragment.position() && end <= fragmentEnd;
        if (isWithin && !all.empty() && all.back().within == fragment) {
            Rewriting &last = all.back();
            last.text += walk.text(last.end, start);
            last.text += text;
            last.end = end;
        } else {
            all.push_back(
                {start, end, text, fragment.charFormat(), isWithin ? fragment : QTextFragment()});
        }
    }
    return all;
}

} // namespace

void applyEdits(RichTextBox &pane, std::span<const TextEdit> edits)
{
    const std::vector<Rewriting> all = rewritings(*pane.document(), edits);
    QTextCursor cursor(pane.document());
    cursor.beginEditBlock();
    // From the end, so that what is still to be changed stays where it was.
    for (auto rewriting = all.rbegin(); rewriting != all.rend(); ++rewriting) {
        cursor.setPosition(rewriting->start);
        cursor.setPosition(rewriting->end, QTextCursor::KeepAnchor);
        cursor.insertText(rewriting->text, rewriting->format);
        keepFormatOfEmptyParagraph(cursor, rewriting->format);
    }
    cursor.endEditBlock();
}
