#pragma once

#include "search/ReplaceRounds.h"

#include <QObject>
#include <QTimer>
#include <optional>

class QWidget;
struct SharedState;

/// Replaces all matches in a pane. The rounds are done in short slices between which the message
/// loop is served, since a replacement that makes a new match goes on for ever. The pane shows the
/// result when they are at an end: nothing is left to replace, stop has been called, Esc has set
/// AbortRequested, or the pane's window is about to close.
///
/// A run-time error leaves the pane as it was, also where the text would become too long: only a
/// replacement that feeds on itself comes that far, no undo state could take its ten million
/// characters back, and showing them would hold the window up for many seconds.
///
/// Where the pane is changed meanwhile, the rounds begin anew with the text as it then is.
class ReplaceAll final : public QObject
{
    Q_OBJECT

public:
    /// Run-time errors are shown over `window`.
    ReplaceAll(SharedState &state, QWidget &window) : state_(state), window_(window)
    {
        timer_.setSingleShot(true);
        timer_.callOnTimeout(this, &ReplaceAll::runSlice);
    }

    /// Returns when all is done or, with more to do, after the first slice. AbortRequested must be
    /// clear. Does nothing while a replacement runs.
    void start(RichTextBox &pane, const TextSearch &search, const QString &replacement);

    /// Ends the rounds, if any run.
    void stop();

    [[nodiscard]] bool isRunning() const { return rounds_.has_value(); }

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// More is to be done; `replaced` matches have been replaced so far.
    void progressed(qint64 replaced);
    /// All rounds are done or given up.
    void finished();

private:
    void beginRounds();
    void runSlice();
    [[nodiscard]] bool runRounds();
    void showResult();
    void leave();

    SharedState &state_;
    QWidget &window_;
    RichTextBox *pane_ = nullptr; ///< the pane while rounds_ are under way
    std::optional<TextSearch> search_;
    QString replacement_;
    std::optional<ReplaceRounds> rounds_;
    QTimer timer_;
};
