#pragma once

#include "editor/PaneCode.h"

class RichTextBox;

/// How the user answered the question whether to save changes, as the number that callers test.
enum class SaveAnswer : qint16 { Proceed = 0, Cancel = -1 };

/// What start-up, the main window and the closing of it ask of the panes' documents.
class Documents
{
public:
    virtual ~Documents() = default;

    /// Starts a new document in the pane, after asking whether to save its changes.
    virtual void NewDocument(RichTextBox &pane) = 0;

    /// Asks for each pane that the code names and that has changed whether to save it, and saves it
    /// on Yes.
    [[nodiscard]] virtual SaveAnswer AskSaveChanges(PaneCode panes) = 0;
};
