#include "platform/RichTextBox.h"

#include "platform/LongWords.h"
#include "platform/SoftHyphen.h"
#include "platform/TextPosition.h"
#include <QTextBlock>
#include <algorithm>

namespace {

/// Replaces what the cursor selects by a text of that format.
void replace(QTextCursor &cursor, const QString &text, const QTextCharFormat &format)
{
    cursor.beginEditBlock();
    cursor.insertText(documentText(text), format);
    keepFormatOfEmptyParagraph(cursor, format);
    cursor.endEditBlock();
}

} // namespace

RichTextBox::RichTextBox(QWidget *parent) : QTextEdit(parent)
{
    setAcceptRichText(false);
    setContextMenuPolicy(Qt::CustomContextMenu);
    showInactiveSelection();
    showDocument(*document());
    connect(this, &QTextEdit::textChanged, this, &RichTextBox::changed);
    connect(this, &QTextEdit::cursorPositionChanged, this, &RichTextBox::reportSelection);
    connect(this, &QTextEdit::selectionChanged, this, &RichTextBox::reportSelection);
}

RichTextBox::~RichTextBox() = default;

void RichTextBox::showDocument(QTextDocument &document)
{
    document.setParent(this);
    document.setUndoRedoEnabled(false);
    showSoftHyphens(document);
    connect(&document, &QTextDocument::contentsChange, this, &RichTextBox::textHasChanged);
    textIsCurrent_ = false;
    format_.reset();
    QTextDocument *former = this->document();
    if (former != &document) {
        reportedAnchor_ = 0; // the new caret is told of below, once its format is right
        reportedPosition_ = 0;
        if (haveLongWord(document, 0, document.characterCount()))
            setWordWrapMode(QTextOption::WrapAnywhere); // before it is laid out
        setDocument(&document);
        chooseWrapping(0, document.characterCount());
        former->deleteLater();                 // it may be what is telling of its change right now
        setTextCursor(QTextCursor(&document)); // the old one would type in the former format
        format_.reset();
        Q_EMIT selectionMoved();
    }
}

void RichTextBox::textHasChanged(int position, int /*removed*/, int added)
{
    textIsCurrent_ = false;
    format_.reset();
    chooseWrapping(position, position + added);
}

/// Breaks lines anywhere as long as the text has a long word, after a change between two positions.
void RichTextBox::chooseWrapping(int from, int to)
{
    if (wordWrapMode() != QTextOption::WrapAnywhere) {
        if (haveLongWord(*document(), from, to))
            setWordWrapMode(QTextOption::WrapAnywhere);
    } else if (!haveLongWord(*document(), 0, document()->characterCount())) {
        setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    }
}

QString RichTextBox::Text() const
{
    if (!textIsCurrent_) {
        text_ = userText(*document(), 0, document()->characterCount() - 1);
        textIsCurrent_ = true;
    }
    return text_;
}

int RichTextBox::TextLength() const
{
    return userLength(*document());
}

void RichTextBox::setText(const QString &text)
{
    const QTextCharFormat format = firstFormat(*document());
    QTextCursor all(document());
    all.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    replace(all, text, format);
    setSelStart(0);
}

int RichTextBox::SelStart() const
{
    return userPosition(*document(), textCursor().selectionStart());
}

void RichTextBox::setSelStart(int start)
{
    select(start, 0);
}

int RichTextBox::SelLength() const
{
    const QTextCursor cursor = textCursor();
    return userPosition(*document(), cursor.selectionEnd()) -
           userPosition(*document(), cursor.selectionStart());
}

void RichTextBox::setSelLength(int length)
{
    select(SelStart(), length);
}

QString RichTextBox::SelText() const
{
    const QTextCursor cursor = textCursor();
    return userText(*document(), cursor.selectionStart(), cursor.selectionEnd());
}

void RichTextBox::setSelText(const QString &text)
{
    QTextCursor cursor = textCursor();
    replace(cursor, text, insertionFormat(cursor));
    setTextCursor(cursor);
}

int RichTextBox::find(const QString &text, int start, int end, FindFlags flags)
{
    const TextSearch search(text, flags);
    const auto position = int(search.find(Text(), start, end));
    if (position >= 0)
        select(position, int(search.length()));
    return position;
}

void RichTextBox::select(int start, int length)
{
    const int first = documentPosition(*document(), start);
    const qint64 end = qint64(userPosition(*document(), first)) + std::max(length, 0);
    QTextCursor cursor = textCursor();
    cursor.setPosition(first);
    cursor.setPosition(documentPosition(*document(), int(std::min<qint64>(end, TextLength()))),
                       QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

void RichTextBox::reportSelection()
{
    const QTextCursor cursor = textCursor();
    if (cursor.anchor() == reportedAnchor_ && cursor.position() == reportedPosition_)
        return;
    reportedAnchor_ = cursor.anchor();
    reportedPosition_ = cursor.position();
    format_.reset();
    Q_EMIT selectionMoved();
}

void RichTextBox::showInactiveSelection()
{
    QPalette colours = palette();
    for (const auto role : {QPalette::Highlight, QPalette::HighlightedText})
        colours.setColor(QPalette::Inactive, role, colours.color(QPalette::Active, role));
    if (colours != palette())
        setPalette(colours);
}
