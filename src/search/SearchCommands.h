#pragma once

#include "editor/Panes.h"

#include <functional>
#include <memory>

class QWidget;
class frmFind;
struct SharedState;

/// The search commands of the main window.
class SearchCommands
{
public:
    /// `window` owns the dialog and the messages; `isTranscribing` tells whether a transcription
    /// runs.
    SearchCommands(SharedState &state, const Panes &panes, std::function<bool()> isTranscribing,
                   QWidget &window);
    ~SearchCommands();

    /// Opens the find dialog with the active pane's selected text, or brings the open one to the
    /// front as it is. The second shows its replace controls.
    void showFind();
    void showReplace();

    void findNextUnknown();
    void findPreviousUnknown();

private:
    void open(const QString &how);

    SharedState &state_;
    Panes panes_;
    std::function<bool()> isTranscribing_;
    QWidget &window_;
    std::unique_ptr<frmFind> dialog_; ///< kept when closed, until the next one opens
};
