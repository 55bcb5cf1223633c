#pragma once

#include "editor/PaneCode.h"

#include <QObject>
#include <functional>

class QWidget;
class RichTextBox;
class UndoJournal;
enum class ChangeReason;
struct KeyPress;

/// What the keys of a pane do beside typing. None of them may be empty.
struct PaneCommands
{
    using Command = std::function<void(PaneCode)>;

    Command Undo;
    Command Redo;
    Command Cut;
    Command Copy;
    Command Paste;
    Command SelectAll;
    Command otherPane; ///< gives the focus to the pane beside this one
};

/// Sees to it that what the user types, deletes or drops in a pane can be undone, and takes the
/// keys that the panes don't handle themselves.
///
/// Not every key costs a journal entry: a run of typed characters, a run of deletions and a run of
/// backspaces each record the pane once, before they begin. A run ends where the kind of key
/// changes, whichever pane that key goes to, and after Enter.
class PaneKeys final : public QObject
{
    Q_OBJECT

public:
    /// What is shown to the user is shown over `window`; it and the journal outlive this.
    PaneKeys(QWidget &window, UndoJournal &journal, PaneCommands commands);

    /// From now on handles the keys and changes of the pane, which has that code.
    void watch(RichTextBox &pane, PaneCode code);

private:
    void RTBKeyDowns(PaneCode pane, KeyPress &key);
    [[nodiscard]] const PaneCommands::Command *command(const KeyPress &key) const;
    void classKey(PaneCode pane, qint16 code);
    void recordUnlessClass(PaneCode pane, qint16 keyClass);
    void prepareChange(PaneCode pane, ChangeReason reason);

    QWidget &window_;
    UndoJournal &journal_;
    PaneCommands commands_;
    qint16 lastClass_ = 0;       ///< the kind of the last key, for both panes
    bool keyWasClassed_ = false; ///< the key now pressed has been seen to
};
