#pragma once

#include "editor/Panes.h"
#include "platform/SelectionFormat.h"

class QWidget;
class UndoJournal;
struct SharedState;

/// What an amount of character offset is counted from.
enum class OffsetBase : quint8 { Baseline, PresentOffset };

/// The commands that format the selection of the active pane. Each records an undo state first,
/// also if it then changes nothing; none does anything while no pane is active. With nothing
/// selected they set how the next typed characters look.
class FormatCommands
{
public:
    FormatCommands(const SharedState &state, const Panes &panes, UndoJournal &journal)
        : state_(state), panes_(panes), journal_(journal)
    {
    }

    /// Bold, italic and underline go on where they were mixed.
    void toggleBold();
    void toggleItalic();
    void toggleUnderline();

    /// Two points more or less. A mixed size, and one at its limit, stay.
    void makeLarger();
    void makeSmaller();

    void setAlignment(Alignment alignment);
    void toggleBulletedList();

    /// Raises the selection by twips, or lowers it by a negative amount.
    void setCharOffset(qint16 amount, OffsetBase base);

    /// Takes the text of the list of fonts. An empty one changes nothing.
    void setFontName(const QString &name);

    /// Takes the text of the list of font sizes. What is no size changes nothing.
    void setFontSize(const QString &size);

    /// Lets the user choose font, style and size together in the platform's font dialog, which
    /// opens over `window`. Cancel records no state.
    void chooseFont(QWidget *window);

private:
    void toggle(std::optional<bool> SelectionFormat::*attribute, void (RichTextBox::*set)(bool));
    void changeFontSize(double difference);

    /// The active pane, its state recorded; null if there is none.
    [[nodiscard]] RichTextBox *recordedPane();

    const SharedState &state_;
    Panes panes_;
    UndoJournal &journal_;
};
