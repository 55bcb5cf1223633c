#pragma once

#include <QObject>
#include <QString>
#include <deque>
#include <functional>
#include <optional>

class QTimer;
class QWidget;
class RichTextBox;
class UndoJournal;
struct ModeTable;
struct SharedState;

/// Transcribes the Source pane into the Target pane: at a command, or by itself while automatic
/// transcription is on. The message loop is served after every step, so anything may happen while a
/// run lasts; a second run never starts meanwhile.
class TranscriptionRun : public QObject
{
    Q_OBJECT

public:
    /// What a run works on; all of it outlives the run.
    struct Parts
    {
        QWidget &window; ///< messages are shown over it
        RichTextBox &source;
        RichTextBox &target;
        UndoJournal &journal;
        QTimer &tmrStatus;       ///< shows the progress; runs only during a run
        QTimer &tmrAutoGenerate; ///< counts for automatic transcription; rests during a run
    };

    /// `chooseMode` shows the modes dialog and returns when it is closed.
    TranscriptionRun(SharedState &state, const Parts &parts, std::function<void()> chooseMode);

    /// Transcribes once, after letting the user choose a mode where none is chosen. Does nothing
    /// while a run lasts. Throws RuntimeError when the mode or the text cannot be handled; the
    /// pointer and the timers then stay as the run had set them.
    void PrepareGeneration();

    /// Switches automatic transcription on, after a question, or off.
    void toggleAutoTranscribe();

    /// Runs a command that must not meet a run half done: at once where none lasts, else the run is
    /// aborted and the command follows when it has stored its partial result.
    void whenIdle(const std::function<void()> &command);

    [[nodiscard]] bool isRunning() const { return isRunning_; }

Q_SIGNALS:
    /// A text for the status bar, and a short one for a minimised window; both empty at the end.
    void message(const QString &text, const QString &shortText);
    /// How much of the run is done, 0 to 1; nothing at its end.
    void progress(std::optional<double> done);
    void autoTranscribeChanged(bool isOn);

private:
    bool letModeBeChosen();
    void begin();
    void transcribe(const ModeTable &table);
    [[nodiscard]] QString transcription(QString text, const ModeTable &table);
    void end();
    void leave();
    void serveWaiting();
    void noteSourceText();
    void showProgress();
    void countTick();

    SharedState &state_;
    Parts parts_;
    std::function<void()> chooseMode_;
    std::deque<std::function<void()>> waiting_; ///< commands for the end of the run
    bool isServing_ = false;                    ///< one of them is at work
    bool isRunning_ = false;
    bool pointerIsBusy_ = false;
    QString sourceText_; ///< as it last was
    int ticks_ = 0;      ///< of tmrAutoGenerate since the Source text changed
};
