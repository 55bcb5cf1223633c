#pragma once

#include "editor/UndoJournal.h"

#include <vector>

/// A journal that only keeps for which panes a state was recorded.
class JournalRecord final : public UndoJournal
{
public:
    void SaveUndoState(PaneCode pane) override { saved.push_back(pane); }
    void UpdateUndoButtons(PaneCode /*pane*/) override {}
    void ClearUndoFiles(const QString & /*pattern*/) override {}

    std::vector<PaneCode> saved;
};
