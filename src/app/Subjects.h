#pragma once

#include "editor/EditCommands.h"
#include "editor/FormatCommands.h"
#include "editor/FormatIndicator.h"
#include "editor/JournalFolder.h"
#include "editor/PaneDocuments.h"
#include "editor/PaneKeys.h"
#include "editor/Panes.h"
#include "editor/RtfUndoJournal.h"
#include "engine/run/TranscriptionRun.h"
#include "help/HelpCommands.h"
#include "modes/ModeEditor.h"
#include "search/SearchCommands.h"
#include "tools/GlyphVariants.h"
#include "tools/InsertCommands.h"

class Form1;
class StoredSettings;

/// Everything that the window's commands are done by, in the order in which one builds on another.
/// The window, the shared state and the stored settings outlive it.
struct Subjects
{
    Subjects(Form1 &form, SharedState &state, StoredSettings &stored);

    Panes panes;
    JournalFolder journalFolder;
    RtfUndoJournal journal;
    PaneDocuments documents;
    TranscriptionRun run;
    ModeEditor modeEditor;
    EditCommands edit;
    FormatCommands format;
    FormatIndicator indicator;
    PaneKeys keys;
    SearchCommands search;
    InsertCommands insert;
    GlyphVariants glyphs;
    HelpCommands help;

private:
    [[nodiscard]] PaneCommands paneCommands(Form1 &form);
};
