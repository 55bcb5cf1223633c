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
#include <memory>

namespace {

/// Keys that type a character, delete one or end a line, by themselves or with Shift.
bool isTyping(const QKeyEvent &event)
{
    if (event.matches(QKeySequence::Backspace) || event.matches(QKeySequence::Delete) ||
        event.matches(QKeySequence::InsertParagraphSeparator) ||
        event.matches(QKeySequence::InsertLineSeparator))
        return true;
    if (event.key() == Qt::Key_Backspace && event.modifiers() == Qt::ShiftModifier)
        return true;
    if (event.text().isEmpty())
        return false;
    const QChar first = event.text().front();
    const Qt::KeyboardModifiers command = event.modifiers() & ~Qt::ShiftModifier;
    return first.category() == QChar::Other_Format ||
           (command != Qt::ControlModifier && (first.isPrint() || first == QLatin1Char('\t')));
}

/// Key combinations with which the control itself deletes words and lines, or pastes.
bool isEditingKey(const QKeyEvent &event)
{
    constexpr std::array Keys = {QKeySequence::Cut, QKeySequence::Paste,
                                 QKeySequence::DeleteStartOfWord, QKeySequence::DeleteEndOfWord,
                                 QKeySequence::DeleteEndOfLine};
    return std::any_of(Keys.begin(), Keys.end(),
                       [&](QKeySequence::StandardKey key) { return event.matches(key); });
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

bool isWordCharacter(QStringView text, qsizetype position)
{
    return position >= 0 && position < text.size() && text[position].isLetterOrNumber();
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
    cursor.insertText(documentText(text), cursor.charFormat());
    setTextCursor(cursor);
}

int RichTextBox::find(const QString &text, int start, int end, FindFlags flags)
{
    const QString whole = Text();
    const QString sought = userForm(text);
    const auto sensitivity =
        flags.testFlag(FindFlag::MatchCase) ? Qt::CaseSensitive : Qt::CaseInsensitive;
    qsizetype position = std::max(start, 0) - 1;
    do {
        position = sought.isEmpty() ? -1 : whole.indexOf(sought, position + 1, sensitivity);
        if (position < 0 || position >= end)
            return -1;
    } while (
        flags.testFlag(FindFlag::WholeWord) &&
        (isWordCharacter(whole, position - 1) || isWordCharacter(whole, position + sought.size())));
    select(int(position), int(sought.size()));
    return int(position);
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
    if (key.swallowed)
        return;
    if (isEditingKey(*event))
        Q_EMIT aboutToChange(ChangeReason::EditingKey);
    else if (isTyping(*event))
        Q_EMIT aboutToChange(ChangeReason::Typing);
    QTextEdit::keyPressEvent(event);
}

void RichTextBox::inputMethodEvent(QInputMethodEvent *event)
{
    const bool composes = !event->preeditString().isEmpty() && textCursor().hasSelection();
    if (composes || !event->commitString().isEmpty() || event->replacementLength() > 0)
        Q_EMIT aboutToChange(ChangeReason::InputMethod);
    event->setCommitString(documentText(event->commitString()), event->replacementStart(),
                           event->replacementLength());
    QTextEdit::inputMethodEvent(event);
}

void RichTextBox::mousePressEvent(QMouseEvent *event)
{
    // A press inside the selection would start a drag, which takes text away behind our back.
    if (event->button() == Qt::LeftButton && !(event->modifiers() & Qt::ShiftModifier)) {
        QTextCursor cursor = textCursor();
        cursor.clearSelection();
        setTextCursor(cursor);
    }
    QTextEdit::mousePressEvent(event);
}

void RichTextBox::mouseReleaseEvent(QMouseEvent *event)
{
    const QClipboard &clipboard = *QGuiApplication::clipboard();
    if (event->button() == Qt::MiddleButton && clipboard.supportsSelection())
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
    return source->hasText();
}

void RichTextBox::insertFromMimeData(const QMimeData *source)
{
    setSelText(source->text());
}
