#pragma once

class Form1;
struct SharedState;

/// Connects the commands whose subject is the main window itself: the View and Pane menus and Exit.
/// `state` must outlive the window.
void connectWindowCommands(Form1 &form, const SharedState &state);
