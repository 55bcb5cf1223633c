#include "platform/RichTextBox.h"

#include "platform/SoftHyphen.h"
#include <QClipboard>
#include <QDragMoveEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextBlock>
#include <QUrl>
#include <algorithm>
#include <initializer_list>
#include <memory>
#include <optional>

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

/// Why the control is about to change its text for a key; none if it isn't.
std::optional<ChangeReason> changeReason(const QKeyEvent &event, const RichTextBox &box)
{
    if ((event.matches(QKeySequence::Cut) && box.textCursor().hasSelection()) ||
        (event.matches(QKeySequence::Paste) && box.canPaste()) ||
        isOneOf(event, {QKeySequence::DeleteStartOfWord, QKeySequence::DeleteEndOfWord,
                        QKeySequence::DeleteEndOfLine}))
        return ChangeReason::EditingKey;
    const bool isBackspace = event.key() == Qt::Key_Backspace &&
                             (event.modifiers() & ~Qt::ShiftModifier) == Qt::NoModifier;
    if (isBackspace || typesText(event) ||
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

/// The format of the first selected character, or that at the caret.
QTextCharFormat insertionFormat(const QTextCursor &cursor)
{
    if (!cursor.hasSelection())
        return cursor.charFormat();
    QTextCursor first(cursor);
    first.setPosition(cursor.selectionStart());
    first.movePosition(QTextCursor::NextCharacter);
    return first.charFormat();
}

} // namespace

RichTextBox::RichTextBox(QWidget *parent) : QTextEdit(parent)
{
    setUndoRedoEnabled(false);
    setAcceptRichText(false);
    setContextMenuPolicy(Qt::CustomContextMenu);
    showSoftHyphens(*document());
    showInactiveSelection();
    connect(document(), &QTextDocument::contentsChange, this, [this] { textIsCurrent_ = false; });
    connect(this, &QTextEdit::textChanged, this, &RichTextBox::changed);
    connect(this, &QTextEdit::cursorPositionChanged, this, &RichTextBox::reportSelection);
    connect(this, &QTextEdit::selectionChanged, this, &RichTextBox::reportSelection);
}

RichTextBox::~RichTextBox() = default;

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
    QTextCursor all(document());
    all.movePosition(QTextCursor::NextCharacter);
    const QTextCharFormat format = all.charFormat();
    all.setPosition(0);
    all.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    all.insertText(documentText(text), format);
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
    cursor.insertText(documentText(text), insertionFormat(cursor));
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

void RichTextBox::keyPressEvent(QKeyEvent *event)
{
    KeyPress key{.key = event->key(), .modifiers = event->modifiers()};
    Q_EMIT keyDown(key);
    if (key.swallowed || turnsDirection(*event))
        return;
    if (const std::optional<ChangeReason> reason = changeReason(*event, *this))
        Q_EMIT aboutToChange(*reason);
    if (typesText(*event) && documentText(event->text()) != event->text())
        setSelText(event->text());
    else
        QTextEdit::keyPressEvent(event);
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
    const bool isPlain = event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier;
    if (isPlain && textCursor().hasSelection())
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
        event->acceptProposedAction();
    else
        QTextEdit::dragEnterEvent(event);
}

void RichTextBox::dragMoveEvent(QDragMoveEvent *event)
{
    if (!localFiles(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
    else
        QTextEdit::dragMoveEvent(event);
}

void RichTextBox::dropEvent(QDropEvent *event)
{
    const QStringList paths = localFiles(*event->mimeData());
    if (!paths.isEmpty()) {
        event->acceptProposedAction();
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
    setSelText(source->text());
}
