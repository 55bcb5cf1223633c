#pragma once

class RichTextBox;
class UndoJournal;
struct SharedState;

/// Moves text between a pane and the clipboard, always as plain text: what is pasted takes the
/// formatting of its new place. Cut, Paste and Clear record an undo state of the active pane, which
/// is the pane given, even if nothing is selected.
class EditCommands
{
public:
    EditCommands(const SharedState &state, UndoJournal &journal) : state_(state), journal_(journal)
    {
    }

    /// With nothing selected the clipboard holds an empty text afterwards.
    void Cut(RichTextBox &pane);
    static void Copy(const RichTextBox &pane);

    /// Line ends of any kind become paragraphs, and control codes that no text holds are left out.
    /// A clipboard without text replaces the selection by nothing.
    void Paste(RichTextBox &pane);
    void Clear(RichTextBox &pane);
    static void SelectAll(RichTextBox &pane);

private:
    void recordState();

    const SharedState &state_;
    UndoJournal &journal_;
};
