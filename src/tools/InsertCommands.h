#pragma once

#include "editor/Panes.h"

#include <QString>

class QWidget;
class StoredSettings;
class UndoJournal;
struct SharedState;

/// The commands that write Tengwar which nobody can type: numerals and list items into the Target
/// pane, any characters of the font into the active pane. Each opens its dialog and inserts what it
/// gives at the start of the selection, replacing nothing, with one undo state; nothing is recorded
/// where nothing is inserted.
class InsertCommands
{
public:
    InsertCommands(SharedState &state, const Panes &panes, UndoJournal &journal,
                   StoredSettings &stored, QWidget &window)
        : state_(state), panes_(panes), journal_(journal), stored_(stored), window_(window)
    {
    }

    /// Opens the calculator, with the number selected in the Source pane if there is one.
    void insertNumerals();

    /// Does nothing where no pane is active.
    void insertSpecialCharacters();

private:
    void insert(PaneCode code);

    SharedState &state_;
    Panes panes_;
    UndoJournal &journal_;
    StoredSettings &stored_;
    QWidget &window_;
};

/// The whole part of the number with which a text begins, as decimal digits. The number is in
/// decimal notation, with a point and an exponent if it has them; of a longer text only the first
/// nine characters count. Empty if the number isn't above 0, is beyond 32 bits or there is none.
[[nodiscard]] QString leadingNumber(const QString &text);
