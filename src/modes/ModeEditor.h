#pragma once

class QWidget;
struct Settings;

/// The command that starts the mode editor, a program of its own, on the current mode.
class ModeEditor
{
public:
    /// `window` is the one over which the user is asked. Both must outlive the command.
    ModeEditor(Settings &settings, QWidget &window) : settings_(settings), window_(window) {}

    /// Starts the program at `EditorPath` with the words of the current mode's name as its
    /// arguments, and doesn't wait for it. Where there is no such file the user may locate it.
    /// Throws RuntimeError if the program can't be started.
    void runModeSmith();

    /// Whether the user has located the editor, so that `EditorPath` is worth storing.
    [[nodiscard]] bool isLocated() const { return isLocated_; }

private:
    /// Whether the user named a file that exists; it is then the `EditorPath`.
    [[nodiscard]] bool locate();

    Settings &settings_;
    QWidget &window_;
    bool isLocated_ = false;
};
