#pragma once

class Form1;
struct SharedState;
struct Subjects;

/// Connects the Edit menu's text commands, the Format menu, the formatting toolbar and the panes'
/// context menus, and keeps the display of the format true.
void connectWritingCommands(Form1 &form, const SharedState &state, Subjects &subjects);
