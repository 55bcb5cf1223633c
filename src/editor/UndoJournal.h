#pragma once

#include "editor/PaneCode.h"

#include <QString>

/// The undo history of the panes, as those see it who change a pane.
class UndoJournal
{
public:
    virtual ~UndoJournal() = default;

    /// Records the pane as it is; to be called before every change.
    virtual void SaveUndoState(PaneCode pane) = 0;

    /// Enables or disables Undo and Redo by the pane's history.
    virtual void UpdateUndoButtons(PaneCode pane) = 0;

    /// Deletes the journal files whose names match "rom*", "tng*" or, for all, "*".
    virtual void ClearUndoFiles(const QString &pattern) = 0;
};
