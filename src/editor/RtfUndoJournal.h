#pragma once

#include "editor/UndoJournal.h"

#include <QObject>
#include <array>

class JournalFolder;
class QWidget;
class RichTextBox;

/// What Undo and Redo can do for a pane.
struct UndoState
{
    bool canUndo = false;
    bool canRedo = false;

    bool operator==(const UndoState &) const = default;
};

/// The undo history of both panes as numbered RTF files: before each change the whole pane is
/// written to the next one. The files "rom0007.tmp" and "tng0007.tmp" are entry 7 of the Source and
/// of the Target pane.
///
/// Per pane, entries 0 to UndoTop - 1 are what Undo can return to, UndoPos is the entry that the
/// pane shows, and 0 <= UndoPos <= UndoTop <= 32767 always holds. The newest state, entry UndoTop,
/// is written only when the first Undo leaves it. The counters live as long as the program: they
/// stay when the files are cleared, and Undo then says that a file is missing.
///
/// Every operation does nothing but UpdateUndoButtons for a code that doesn't name one pane, and
/// shows its failures over the window.
class RtfUndoJournal final : public QObject, public UndoJournal
{
    Q_OBJECT

public:
    /// What the journal works on; all of it outlives the journal.
    struct Parts
    {
        QWidget &window; ///< messages are shown over it
        RichTextBox &source;
        RichTextBox &target;
        const JournalFolder &folder;
    };

    explicit RtfUndoJournal(const Parts &parts);

    void SaveUndoState(PaneCode pane) override;
    void UpdateUndoButtons(PaneCode pane) override;
    void ClearUndoFiles(const QString &pattern) override;

    /// Shows the state before the present one. Text that this brings back is selected.
    void UndoLast(PaneCode pane);

    /// Shows the state after the present one. An entry that is missing or damaged is passed over in
    /// silence.
    void RedoLast(PaneCode pane);

    /// The two counters of a pane; 0 for a code that doesn't name one pane.
    [[nodiscard]] qint16 UndoTop(PaneCode pane) const;
    [[nodiscard]] qint16 UndoPos(PaneCode pane) const;

Q_SIGNALS:
    /// What Undo and Redo can do now for the pane that UpdateUndoButtons was called for.
    void undoStateChanged(const UndoState &state);

private:
    struct History
    {
        RichTextBox &pane;
        QLatin1StringView prefix; ///< of the names of its files
        qint16 UndoTop = 0;
        qint16 UndoPos = 0;
    };

    [[nodiscard]] History *history(PaneCode pane);
    void save(const History &history, qint16 entry) const;
    void load(const History &history, qint16 entry) const;
    void record(History &history);
    void stepBack(History &history);

    QWidget &window_;
    const JournalFolder &folder_;
    std::array<History, 2> histories_;
};
