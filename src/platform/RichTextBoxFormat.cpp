#include "platform/RichTextBox.h"

#include "engine/RuntimeError.h"
#include <QTextBlock>
#include <cmath>

// The formatting of the selection.

const SelectionFormat &RichTextBox::SelFormat() const
{
    if (!format_)
        format_ = selectionFormat(textCursor());
    return *format_;
}

void RichTextBox::formatSelection(const std::function<void(CharacterFormat &)> &change)
{
    const QTextCursor cursor = textCursor();
    if (cursor.hasSelection()) {
        changeCharacters(cursor, change);
        return;
    }
    QTextCharFormat format = cursor.charFormat();
    CharacterFormat attributes = CharacterFormat::of(format, document()->defaultFont());
    change(attributes);
    attributes.applyTo(format);
    // an empty paragraph keeps the look of what is typed into it also when the caret leaves it
    if (cursor.block().length() == 1)
        QTextCursor(cursor).setBlockCharFormat(format);
    setCurrentCharFormat(format);
    format_.reset();
    Q_EMIT selectionMoved();
}

void RichTextBox::setSelFontName(const QString &name)
{
    formatSelection([&](CharacterFormat &format) {
        format.family = name;
        format.charset = 0; // what the former font's characters were coded in says nothing of it
    });
}

void RichTextBox::setSelFontSize(double points)
{
    constexpr double smallest = 1;
    constexpr double largest = 1638;
    if (!(points >= smallest && points <= largest))
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    formatSelection(
        [&](CharacterFormat &format) { format.halfPoints = int(std::lround(2 * points)); });
}

void RichTextBox::setSelBold(bool bold)
{
    formatSelection(
        [&](CharacterFormat &format) { format.styles.setFlag(CharacterStyle::Bold, bold); });
}

void RichTextBox::setSelItalic(bool italic)
{
    formatSelection(
        [&](CharacterFormat &format) { format.styles.setFlag(CharacterStyle::Italic, italic); });
}

void RichTextBox::setSelUnderline(bool underline)
{
    formatSelection([&](CharacterFormat &format) {
        format.styles.setFlag(CharacterStyle::Underline, underline);
    });
}

void RichTextBox::setSelCharOffset(int twips)
{
    formatSelection([&](CharacterFormat &format) {
        format.offset = twips;
        format.script = Script::Baseline; // one that a file brought along would add to the offset
    });
}

void RichTextBox::setSelAlignment(Alignment alignment)
{
    changeParagraphs(textCursor(), [&](ParagraphFormat &format) {
        switch (alignment) {
        case Alignment::Left:
            format.alignment = Qt::AlignLeft;
            break;
        case Alignment::Right:
            format.alignment = Qt::AlignRight;
            break;
        case Alignment::Center:
            format.alignment = Qt::AlignHCenter;
            break;
        }
    });
}

void RichTextBox::setSelBullet(bool bullet)
{
    changeParagraphs(textCursor(), [&](ParagraphFormat &format) { format.bullet = bullet; });
}

void RichTextBox::setSelIndent(int twips)
{
    changeParagraphs(textCursor(),
                     [&](ParagraphFormat &format) { format.left = twips - format.firstLine; });
}

void RichTextBox::setSelHangingIndent(int twips)
{
    changeParagraphs(textCursor(), [&](ParagraphFormat &format) {
        format.left += format.firstLine + twips;
        format.firstLine = -twips;
    });
}

void RichTextBox::setSelRightIndent(int twips)
{
    changeParagraphs(textCursor(), [&](ParagraphFormat &format) { format.right = twips; });
}

void RichTextBox::setBulletIndent(int twips)
{
    changeParagraphs(textCursor(), [&](ParagraphFormat &format) { format.bulletIndent = twips; });
}
