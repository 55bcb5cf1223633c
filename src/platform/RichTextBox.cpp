#include "platform/RichTextBox.h"

#include "platform/SoftHyphen.h"
#include "platform/TextPosition.h"
#include <QTextBlock>
#include <algorithm>

namespace {

bool endsWord(QStringView text)
{
    if (text.size() > 1 && text.back().isLowSurrogate())
        return QChar::isLetterOrNumber(QChar::surrogateToUcs4(text[text.size() - 2], text.back()));
    return !text.isEmpty() && text.back().isLetterOrNumber();
}

bool beginsWord(QStringView text)
{
    if (text.size() > 1 && text.front().isHighSurrogate())
        return QChar::isLetterOrNumber(QChar::surrogateToUcs4(text.front(), text[1]));
    return !text.isEmpty() && text.front().isLetterOrNumber();
}

bool isWholeWord(QStringView text, qsizetype position, qsizetype length)
{
    return !endsWord(text.first(position)) && !beginsWord(text.sliced(position + length));
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
    textHasChanged();
    QTextDocument *former = this->document();
    if (former != &document) {
        setDocument(&document);
        former->deleteLater();                 // it may be what is telling of its change right now
        setTextCursor(QTextCursor(&document)); // the old one would type in the former format
        format_.reset();
        Q_EMIT selectionMoved();
    }
}

void RichTextBox::textHasChanged()
{
    textIsCurrent_ = false;
    format_.reset();
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
    const QString sought = userForm(text);
    const QString whole = Text();
    // A match begins before `end`, so nothing beyond this is looked at.
    const qint64 last = qint64(end) + sought.size() - 1;
    const QStringView range = QStringView(whole).first(std::clamp<qint64>(last, 0, whole.size()));
    const bool isWord = flags.testFlag(FindFlag::WholeWord);
    const auto sensitivity =
        flags.testFlag(FindFlag::MatchCase) ? Qt::CaseSensitive : Qt::CaseInsensitive;
    qsizetype position =
        sought.isEmpty() ? -1 : range.indexOf(sought, std::max(start, 0), sensitivity);
    while (position >= 0 && isWord && !isWholeWord(whole, position, sought.size()))
        position = range.indexOf(sought, position + 1, sensitivity);
    if (position >= 0)
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
