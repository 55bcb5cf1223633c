#pragma once

class Form1;
struct SharedState;
struct Subjects;

/// Shows the modes dialog over the window and returns when it is closed.
void showModes(Form1 &form, SharedState &state);

/// Connects the Tengwar menu's commands, the toolbar's Transcribe and the list of modes to the run
/// and the mode editor, and the run's messages to the status bar.
void connectTranscriptionCommands(Form1 &form, SharedState &state, Subjects &subjects);
