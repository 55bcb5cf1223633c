#include "editor/FormatCommands.h"

#include "editor/EnteredNumber.h"
#include "editor/SharedState.h"
#include "editor/UndoJournal.h"
#include "engine/RuntimeError.h"
#include "platform/CommonDialog.h"
#include "platform/RichTextBox.h"
#include "platform/ScreenUnits.h"

#include <algorithm>

namespace {

constexpr double sizeStep = 2; // points

/// Sets a size, unless the pane refuses it.
void trySize(RichTextBox &pane, double points)
{
    try {
        pane.setSelFontSize(points);
    } catch (const RuntimeError &) {
        return;
    }
}

QFont fontOf(const CharacterFormat &format)
{
    const auto has = [&](CharacterStyle style) { return format.styles.testFlag(style); };
    QFont font(format.family);
    font.setPointSizeF(format.halfPoints / 2.0);
    font.setBold(has(CharacterStyle::Bold));
    font.setItalic(has(CharacterStyle::Italic));
    font.setUnderline(has(CharacterStyle::Underline));
    font.setStrikeOut(has(CharacterStyle::StrikeOut));
    return font;
}

/// Gives the selection everything that a font tells.
void applyFont(RichTextBox &pane, const QFont &font)
{
    pane.setSelFontName(font.family());
    trySize(pane, font.pointSizeF());
    pane.formatSelection([&font](CharacterFormat &format) {
        format.styles.setFlag(CharacterStyle::Bold, font.bold());
        format.styles.setFlag(CharacterStyle::Italic, font.italic());
        format.styles.setFlag(CharacterStyle::Underline, font.underline());
        format.styles.setFlag(CharacterStyle::StrikeOut, font.strikeOut());
    });
}

} // namespace

RichTextBox *FormatCommands::recordedPane()
{
    RichTextBox *pane = panes_.pane(state_.ActivePane);
    if (pane != nullptr)
        journal_.SaveUndoState(state_.ActivePane);
    return pane;
}

void FormatCommands::toggle(std::optional<bool> SelectionFormat::*attribute,
                            void (RichTextBox::*set)(bool))
{
    if (RichTextBox *pane = recordedPane())
        (pane->*set)(!(pane->SelFormat().*attribute).value_or(false));
}

void FormatCommands::toggleBold()
{
    toggle(&SelectionFormat::bold, &RichTextBox::setSelBold);
}

void FormatCommands::toggleItalic()
{
    toggle(&SelectionFormat::italic, &RichTextBox::setSelItalic);
}

void FormatCommands::toggleUnderline()
{
    toggle(&SelectionFormat::underline, &RichTextBox::setSelUnderline);
}

void FormatCommands::toggleBulletedList()
{
    toggle(&SelectionFormat::bullet, &RichTextBox::setSelBullet);
}

void FormatCommands::changeFontSize(double difference)
{
    RichTextBox *pane = recordedPane();
    if (pane == nullptr)
        return;
    if (const std::optional<double> size = pane->SelFormat().fontSize)
        trySize(*pane, *size + difference);
}

void FormatCommands::makeLarger()
{
    changeFontSize(sizeStep);
}

void FormatCommands::makeSmaller()
{
    changeFontSize(-sizeStep);
}

void FormatCommands::setAlignment(Alignment alignment)
{
    if (RichTextBox *pane = recordedPane())
        pane->setSelAlignment(alignment);
}

void FormatCommands::setCharOffset(qint16 amount, OffsetBase base)
{
    RichTextBox *pane = recordedPane();
    if (pane == nullptr)
        return;
    if (base == OffsetBase::Baseline) {
        pane->setSelCharOffset(amount);
        return;
    }
    constexpr int largest = 22 * twipsPerInch; // beyond it text leaves every page
    pane->formatSelection([=](CharacterFormat &format) {
        format.offset = std::clamp(format.offset + amount, -largest, largest);
    });
}

void FormatCommands::setFontName(const QString &name)
{
    RichTextBox *pane = recordedPane();
    if (pane != nullptr && !name.isEmpty() && pane->SelFormat().fontName != name)
        pane->setSelFontName(name);
}

void FormatCommands::setFontSize(const QString &size)
{
    RichTextBox *pane = recordedPane();
    const std::optional<double> points = enteredNumber(size);
    if (pane != nullptr && points && pane->SelFormat().fontSize != points)
        trySize(*pane, *points);
}

void FormatCommands::chooseFont(QWidget *window)
{
    const RichTextBox *active = panes_.pane(state_.ActivePane);
    if (active == nullptr)
        return;
    const CharacterFormat present = CharacterFormat::of(insertionFormat(active->textCursor()),
                                                        active->document()->defaultFont());
    const QFont before = fontOf(present);
    std::optional<QFont> chosen = showFontDialog(window, before);
    if (!chosen)
        return;
    // The dialog shows whole sizes only; one that was left alone keeps its half.
    if (chosen->pointSize() == qRound(before.pointSizeF()))
        chosen->setPointSizeF(before.pointSizeF());
    if (RichTextBox *pane = recordedPane())
        applyFont(*pane, *chosen);
}
