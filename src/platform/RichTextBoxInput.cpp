#include "platform/RichTextBox.h"

#include "platform/PastedText.h"
#include "platform/TextPosition.h"
#include <QClipboard>
#include <QDragMoveEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QUrl>
#include <algorithm>
#include <initializer_list>
#include <memory>

// How the control treats keys, the mouse, input methods, drops and the clipboard: whatever changes
// the text is announced first, and only plain text comes in or goes out.

namespace {

/// Whether the control inserts what the key types. Control alone makes commands of letters;
/// Control with Alt is AltGr on some keyboards.
bool typesText(const QKeyEvent &event)
{
    if (event.text().isEmpty())
        return false;
    const QChar first = event.text().front();
    if (first.category() == QChar::Other_Format)
        return true;
    const bool isCommand = (event.modifiers() & ~Qt::ShiftModifier) == Qt::ControlModifier;
    const bool isText = first.isPrint() || first.isHighSurrogate() || first == u'\t' ||
                        first.category() == QChar::Other_PrivateUse;
    return isText && !isCommand;
}

bool isOneOf(const QKeyEvent &event, std::initializer_list<QKeySequence::StandardKey> keys)
{
    return std::any_of(keys.begin(), keys.end(),
                       [&](QKeySequence::StandardKey key) { return event.matches(key); });
}

bool isBackspace(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Backspace &&
           (event.modifiers() & ~Qt::ShiftModifier) == Qt::NoModifier;
}

/// Why the control is about to change its text for a key; none if it isn't.
std::optional<ChangeReason> changeReason(const QKeyEvent &event, const RichTextBox &box)
{
    if ((event.matches(QKeySequence::Cut) && box.textCursor().hasSelection()) ||
        (event.matches(QKeySequence::Paste) && box.canPaste()) ||
        isOneOf(event, {QKeySequence::DeleteStartOfWord, QKeySequence::DeleteEndOfWord,
                        QKeySequence::DeleteEndOfLine}))
        return ChangeReason::EditingKey;
    if (isBackspace(event) || typesText(event) ||
        isOneOf(event, {QKeySequence::Delete, QKeySequence::InsertParagraphSeparator,
                        QKeySequence::InsertLineSeparator}))
        return ChangeReason::Typing;
    return std::nullopt;
}

/// Keys by which the control would turn a paragraph's writing direction.
bool turnsDirection(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Direction_L || event.key() == Qt::Key_Direction_R;
}

QStringList localFiles(const QMimeData &data)
{
    QStringList paths;
    for (const QUrl &url : data.urls()) {
        if (url.isLocalFile())
            paths += url.toLocalFile();
    }
    return paths;
}

/// Whoever drags files here keeps them: a move would have them delete what was opened.
void acceptCopy(QDropEvent &event)
{
    event.setDropAction(Qt::CopyAction);
    event.accept();
}

} // namespace

void RichTextBox::keyPressEvent(QKeyEvent *event)
{
    KeyPress key{.key = event->key(), .modifiers = event->modifiers()};
    Q_EMIT keyDown(key);
    if (key.swallowed || turnsDirection(*event))
        return;
    const std::optional<ChangeReason> reason = changeReason(*event, *this);
    if (!reason) {
        QTextEdit::keyPressEvent(event);
        return;
    }
    Q_EMIT aboutToChange(*reason);
    const QTextCharFormat format = insertionFormat(textCursor());
    if (endsBullet(*event))
        setSelBullet(false);
    else if (typesText(*event) && documentText(event->text()) != event->text())
        setSelText(event->text());
    else
        QTextEdit::keyPressEvent(event);
    QTextCursor cursor = textCursor();
    keepFormatOfEmptyParagraph(cursor, format);
}

bool RichTextBox::endsBullet(const QKeyEvent &event) const
{
    const QTextCursor cursor = textCursor();
    return isBackspace(event) && !cursor.hasSelection() && cursor.atBlockStart() &&
           SelFormat().bullet == true;
}

void RichTextBox::inputMethodEvent(QInputMethodEvent *event)
{
    const bool replaces = !event->preeditString().isEmpty() && textCursor().hasSelection();
    if (replaces || !event->commitString().isEmpty() || event->replacementLength() > 0)
        Q_EMIT aboutToChange(ChangeReason::InputMethod);
    event->setCommitString(documentText(event->commitString()), event->replacementStart(),
                           event->replacementLength());
    QTextEdit::inputMethodEvent(event);
}

void RichTextBox::mousePressEvent(QMouseEvent *event)
{
    // A press inside the selection would start a drag, whose end may take the text away unseen.
    const bool extends = event->modifiers().testFlag(Qt::ShiftModifier);
    if (event->button() == Qt::LeftButton && !extends && textCursor().hasSelection())
        setTextCursor(cursorForPosition(event->position().toPoint()));
    QTextEdit::mousePressEvent(event);
}

void RichTextBox::mouseReleaseEvent(QMouseEvent *event)
{
    const QClipboard &clipboard = *QGuiApplication::clipboard();
    if (event->button() == Qt::MiddleButton && clipboard.supportsSelection() &&
        canInsertFromMimeData(clipboard.mimeData(QClipboard::Selection)))
        Q_EMIT aboutToChange(ChangeReason::PrimaryPaste);
    QTextEdit::mouseReleaseEvent(event);
}

void RichTextBox::focusInEvent(QFocusEvent *event)
{
    QTextEdit::focusInEvent(event);
    Q_EMIT activated();
}

void RichTextBox::changeEvent(QEvent *event)
{
    QTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        showInactiveSelection();
}

void RichTextBox::dragEnterEvent(QDragEnterEvent *event)
{
    if (!localFiles(*event->mimeData()).isEmpty())
        acceptCopy(*event);
    else
        QTextEdit::dragEnterEvent(event);
}

void RichTextBox::dragMoveEvent(QDragMoveEvent *event)
{
    if (!localFiles(*event->mimeData()).isEmpty())
        acceptCopy(*event);
    else
        QTextEdit::dragMoveEvent(event);
}

void RichTextBox::dropEvent(QDropEvent *event)
{
    const QStringList paths = localFiles(*event->mimeData());
    if (!paths.isEmpty()) {
        acceptCopy(*event);
        Q_EMIT filesDropped(paths);
        return;
    }
    if (canInsertFromMimeData(event->mimeData()))
        Q_EMIT aboutToChange(ChangeReason::Drop);
    QTextEdit::dropEvent(event);
}

QMimeData *RichTextBox::createMimeDataFromSelection() const
{
    auto plain = std::make_unique<QMimeData>();
    plain->setText(SelText());
    return plain.release();
}

bool RichTextBox::canInsertFromMimeData(const QMimeData *source) const
{
    return source != nullptr && source->hasText();
}

void RichTextBox::insertFromMimeData(const QMimeData *source)
{
    setSelText(pastedText(source->text()));
}
