#pragma once

class Form1;
struct SharedState;
struct Subjects;

/// Connects the File menu, Undo and Redo, dropped files and the panes' captions.
void connectDocumentCommands(Form1 &form, const SharedState &state, Subjects &subjects);
