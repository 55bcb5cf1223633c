#include "editor/FormatIndicator.h"

#include "editor/CharacterCode.h"
#include "platform/RichTextBox.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <algorithm>
#include <cmath>

namespace {

void setMixed(QAction &action, bool mixed)
{
    action.setProperty("mixed", mixed);
}

void showSwitch(QAction &action, std::optional<bool> on)
{
    setMixed(action, !on);
    action.setChecked(on.value_or(false));
}

/// Shows a text that is seldom the one shown: finding it among a thousand fonts takes time.
void showText(QComboBox &list, const QString &text)
{
    if (list.currentText() == text)
        return;
    list.setCurrentIndex(list.findText(text, Qt::MatchFixedString | Qt::MatchCaseSensitive));
    list.setEditText(text);
}

/// The text on one line: what would start another, or shows as nothing, becomes a space.
QString onOneLine(QString text)
{
    std::replace_if(
        text.begin(), text.end(), [](QChar character) { return character < u' '; }, u' ');
    return text;
}

QString summary(const QString &selected)
{
    constexpr int longest = 29;
    if (selected.size() == 1)
        return QStringLiteral("%1 (#%2)")
            .arg(selected, QString::number(characterCode(selected.front())));
    if (selected.size() <= longest)
        return selected;
    // half of a character would show as a box
    const bool wouldSplit = selected.at(longest - 1).isHighSurrogate();
    return selected.left(wouldSplit ? longest - 1 : longest) + QChar(u'…');
}

} // namespace

void FormatIndicator::ShowFormat(const RichTextBox &pane)
{
    const SelectionFormat &format = pane.SelFormat();
    showText(controls_.cboFontName, format.fontName.value_or(QString()));
    showText(controls_.cboFontSize,
             format.fontSize ? QString::number(std::lround(*format.fontSize)) : QString());
    controls_.FormatLarger.setEnabled(format.fontSize.has_value());
    controls_.FormatSmaller.setEnabled(format.fontSize.has_value());
    showSwitch(controls_.FormatBold, format.bold);
    showSwitch(controls_.FormatItalic, format.italic);
    showSwitch(controls_.FormatUnderline, format.underline);
    showSwitch(controls_.BulletedList, format.bullet);
    controls_.mnuFBulletedList.setChecked(format.bullet.value_or(false));

    const auto showAlignment = [&format](QAction &button, Alignment alignment) {
        setMixed(button, !format.alignment);
        button.setChecked(format.alignment == alignment);
    };
    showAlignment(controls_.LeftAlign, Alignment::Left);
    showAlignment(controls_.RightAlign, Alignment::Right);
    showAlignment(controls_.CenterAlign, Alignment::Center);
}

void FormatIndicator::ShowSelText(const RichTextBox &pane)
{
    controls_.SelText.setText(onOneLine(summary(pane.SelText())));
}
