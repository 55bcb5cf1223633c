#pragma once

#include "editor/Panes.h"
#include "editor/UndoJournal.h"
#include "platform/RichTextBox.h"
#include "rtf/RtfReader.h"

#include <QList>

/// An undo journal that keeps the states of the panes in memory, as RTF.
class MemoryJournal final : public UndoJournal
{
public:
    explicit MemoryJournal(const Panes &panes) : panes_(panes) {}

    void SaveUndoState(PaneCode pane) override
    {
        recorded += pane;
        states += panes_.pane(pane)->TextRTF();
    }
    void UpdateUndoButtons(PaneCode) override {}
    void ClearUndoFiles(const QString &) override {}

    /// Makes the pane what it was.
    void restore(PaneCode pane, const QByteArray &state) const
    {
        if (readRtf(state, *panes_.pane(pane)->document()))
            qFatal("The recorded state can't be read");
    }

    QList<PaneCode> recorded;
    QList<QByteArray> states; ///< before each change, in order

private:
    Panes panes_;
};
