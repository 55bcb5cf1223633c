#pragma once

#include "editor/Documents.h"
#include "editor/FormatDisplay.h"
#include "editor/UndoJournal.h"
#include "platform/RichTextBox.h"

/// New documents are empty, and there are no files that could be saved.
class EmptyDocuments final : public Documents
{
public:
    void NewDocument(RichTextBox &pane) override { pane.setText({}); }
    [[nodiscard]] SaveAnswer AskSaveChanges(PaneCode) override { return SaveAnswer::Proceed; }
};

/// Nothing is recorded.
class NoJournal final : public UndoJournal
{
public:
    void SaveUndoState(PaneCode) override {}
    void UpdateUndoButtons(PaneCode) override {}
    void ClearUndoFiles(const QString &) override {}
};

/// Nothing is shown.
class NoFormatDisplay final : public FormatDisplay
{
public:
    void ShowFormat(const RichTextBox &) override {}
    void ShowSelText(const RichTextBox &) override {}
};
