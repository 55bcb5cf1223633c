#pragma once

#include "app/Commands.h"
#include "app/FormControls.h"
#include "editor/Documents.h"

#include <QMainWindow>
#include <QTimer>
#include <optional>

class FormatDisplay;
class RichTextBox;
class TranscriptionRun;
class UndoJournal;
struct SharedState;

/// The classes beside the window that it calls when something happens in it.
struct FormSubjects
{
    TranscriptionRun &run;
    Documents &documents;
    UndoJournal &journal;
    FormatDisplay &format;
};

/// The main window: two panes beside each other with toolbars, menus and a status bar around them.
/// It owns, wires and lays out; the commands belong to other classes.
class Form1 final : public QMainWindow
{
    Q_OBJECT

public:
    explicit Form1(SharedState &state);

    /// Makes the window ready to be shown: fills its lists and starts two new documents. `subjects`
    /// must outlive the window.
    void Load(const FormSubjects &subjects, const QStringList &fonts);

    [[nodiscard]] const FormControls &controls() const { return controls_; }
    [[nodiscard]] Commands &commands() { return commands_; }

    /// Every 1000 ms while a transcription runs; stopped at start.
    [[nodiscard]] QTimer &tmrStatus() { return tmrStatus_; }
    /// Every 500 ms while none runs; started at start.
    [[nodiscard]] QTimer &tmrAutoGenerate() { return tmrAutoGenerate_; }

    /// The pane of that code, null for a code that doesn't name one pane.
    [[nodiscard]] RichTextBox *pane(PaneCode code) const;

    /// Width of the window's inner area in twips, as it is or, maximised, as it is going to be.
    [[nodiscard]] qint64 innerWidth() const;

    /// Puts the splitter at a stored place in twips. A window that is yet to be maximised takes it
    /// there as soon as it has the room.
    void restoreSplit(qint64 twips);

    /// Arranges all controls. Does nothing while the window is minimised.
    void MoveControls();

    /// Shows the message in the status bar; a minimised window shows the short message in its
    /// caption.
    void DisplayMessage(const QString &message, const QString &shortMessage = {});

    /// Shows the progress of a run, 0 to 1, beside the messages, or nothing between runs.
    void showProgress(std::optional<double> progress);

    /// Fills the list of fonts.
    void FillFontList(const QStringList &fonts);

    /// Shows the format and the selection of the pane.
    void IndicateRTB(const RichTextBox &pane);

    /// Reads the folder of modes into the list of modes.
    void refillModeList();

    /// Gives the focus to the active pane, if there is one.
    void SetRTBFocus();

Q_SIGNALS:
    /// The window is closed for good.
    void unloaded();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void wirePanes();
    void wireCombos();
    void wireKeys(const QList<QAction *> &menuItems);
    void activatePane(PaneCode code);

    SharedState &state_;
    FormControls controls_;
    Commands commands_;
    QTimer tmrStatus_;
    QTimer tmrAutoGenerate_;
    std::optional<FormSubjects> subjects_;
    std::optional<qint64> waitingSplit_;
};
