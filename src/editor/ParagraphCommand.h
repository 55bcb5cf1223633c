#pragma once

#include "editor/Panes.h"

class QWidget;
class UndoJournal;
struct SharedState;

/// Lets the user change indents and alignment of the paragraphs that the active pane's selection
/// touches, in a dialog over `window`. OK records one undo state, Cancel none. Does nothing while
/// no pane is active.
void editParagraphs(const SharedState &state, const Panes &panes, UndoJournal &journal,
                    QWidget *window);
