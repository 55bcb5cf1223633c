#include "engine/run/TranscriptionRun.h"

#include "editor/SharedState.h"
#include "editor/UndoJournal.h"
#include "engine/LoadMode.h"
#include "engine/TranscribeText.h"
#include "platform/MessageBox.h"
#include "platform/RichTextBox.h"
#include "platform/RunCommand.h"

#include <QApplication>
#include <QScopeGuard>
#include <QTimer>

namespace {

const QString runningMessage = QStringLiteral("Transcribing to tengwar - press ESC to abort.");
constexpr int ticksUntilRun = 3; // of 500 ms
constexpr int percent = 100;

/// Whole per cents; no digits for none.
QString wholePercent(double done)
{
    const int value = qRound(done * percent);
    return (value == 0 ? QString() : QString::number(value)) + QLatin1Char('%');
}

QString exactPercent(double done)
{
    return QString::number(done * percent, 'f', 2) + QLatin1Char('%');
}

bool userWantsAutoTranscribe(QWidget &window)
{
    const Message question = {
        QStringLiteral("Are you sure you want to transcribe to tengwar automatically? "
                       "The current contents of the target field will be lost."),
        QStringLiteral("Auto Transcribe"), QMessageBox::Warning,
        QMessageBox::Yes | QMessageBox::No};
    return showMessage(&window, question) == QMessageBox::Yes;
}

void warnOfUndefinedCharacters(QWidget &window)
{
    showMessage(&window, {QStringLiteral("Some of the characters were not defined in the selected "
                                         "mode. These could not be transcribed."),
                          QStringLiteral("Warning"), QMessageBox::Warning});
}

} // namespace

TranscriptionRun::TranscriptionRun(SharedState &state, const Parts &parts,
                                   std::function<void()> chooseMode)
    : state_(state), parts_(parts), chooseMode_(std::move(chooseMode))
{
    connect(&parts_.tmrStatus, &QTimer::timeout, this, &TranscriptionRun::showProgress);
    connect(&parts_.tmrAutoGenerate, &QTimer::timeout, this,
            [this] { runCommand(&parts_.window, [this] { countTick(); }); });
    connect(&parts_.source, &RichTextBox::changed, this, &TranscriptionRun::noteSourceText);
}

void TranscriptionRun::PrepareGeneration()
{
    if (isRunning_)
        return;
    isRunning_ = true;
    const auto leaving = qScopeGuard([this] { leave(); });
    if (!letModeBeChosen())
        return;
    begin();
    ModeTable table;
    if (LoadMode(state_.Settings.ModePath, state_.Settings.CurrentMode, table))
        transcribe(table);
    // Not reached after an error: the pointer and the timers stay, and the next run sets them
    // right.
    end();
}

bool TranscriptionRun::letModeBeChosen()
{
    while (state_.Settings.CurrentMode.isEmpty()) {
        chooseMode_();
        if (state_.TransferValue.toString() != QLatin1String("Transcribe"))
            return false;
    }
    return true;
}

void TranscriptionRun::begin()
{
    // A command that came while a mode was chosen still wants this run to end.
    state_.AbortRequested = !waiting_.empty();
    Q_EMIT message(runningMessage, {});
    if (!std::exchange(pointerIsBusy_, true))
        QGuiApplication::setOverrideCursor(Qt::BusyCursor);
    parts_.tmrAutoGenerate.stop();
    parts_.tmrStatus.start();
    QCoreApplication::processEvents();
}

void TranscriptionRun::transcribe(const ModeTable &table)
{
    parts_.journal.SaveUndoState(PaneCode::Target);
    if (state_.Settings.ClearTargetPane)
        parts_.target.setText({});
    const bool isSelection = parts_.source.SelLength() != 0;
    const bool replacesAll = !isSelection && state_.AutoTranscribe;
    const QString result =
        transcription(isSelection ? parts_.source.SelText() : parts_.source.Text(), table);
    if (replacesAll)
        parts_.target.setText(result);
    else
        parts_.target.setSelText(result);
}

QString TranscriptionRun::transcription(QString text, const ModeTable &table)
{
    // Modes have rules for é, not for e and an accent that follows it.
    text = text.normalized(QString::NormalizationForm_C);
    TranscriptionContext context;
    context.UndefinedText = state_.Settings.UndefinedText;
    context.UndefinedAlert = state_.Settings.UndefinedAlert;
    context.AbortRequested = state_.AbortRequested;
    context.Yield = [this, &context] {
        state_.Progress = context.Progress;
        QCoreApplication::processEvents();
        context.AbortRequested = state_.AbortRequested;
    };
    QString result = TranscribeText(text, table, context);
    if (context.AlertIsDue)
        warnOfUndefinedCharacters(parts_.window);
    return result;
}

void TranscriptionRun::end()
{
    if (std::exchange(pointerIsBusy_, false))
        QGuiApplication::restoreOverrideCursor();
    parts_.tmrStatus.stop();
    parts_.tmrAutoGenerate.start();
    Q_EMIT message({}, {});
    Q_EMIT progress(std::nullopt);
}

void TranscriptionRun::leave()
{
    isRunning_ = false;
    // From the message loop, when everything that this run was called from has returned.
    if (!waiting_.empty())
        QMetaObject::invokeMethod(this, &TranscriptionRun::serveWaiting, Qt::QueuedConnection);
}

/// One command after the other: while one asks its user something, the next must not begin.
void TranscriptionRun::serveWaiting()
{
    if (isServing_)
        return;
    isServing_ = true;
    while (!waiting_.empty()) {
        if (isRunning_) {
            state_.AbortRequested = true; // its end brings us here again
            break;
        }
        const std::function<void()> command = std::move(waiting_.front());
        waiting_.pop_front();
        runCommand(&parts_.window, command);
    }
    isServing_ = false;
}

void TranscriptionRun::noteSourceText()
{
    // The control also tells of changes that only concern the formatting.
    const QString text = parts_.source.Text();
    if (std::exchange(sourceText_, text) != text)
        ticks_ = 0;
}

void TranscriptionRun::whenIdle(const std::function<void()> &command)
{
    if (!isRunning_) {
        command();
        return;
    }
    state_.AbortRequested = true;
    waiting_.push_back(command);
}

void TranscriptionRun::showProgress()
{
    const double done = state_.Progress;
    Q_EMIT message(QStringLiteral("%1 %2 done.").arg(runningMessage, wholePercent(done)),
                   QStringLiteral("%1 done.").arg(exactPercent(done)));
    Q_EMIT progress(done);
}

void TranscriptionRun::toggleAutoTranscribe()
{
    if (!state_.AutoTranscribe && !userWantsAutoTranscribe(parts_.window))
        return;
    state_.AutoTranscribe = !state_.AutoTranscribe;
    ticks_ = 0;
    Q_EMIT autoTranscribeChanged(state_.AutoTranscribe);
    if (state_.AutoTranscribe)
        PrepareGeneration();
}

void TranscriptionRun::countTick()
{
    // A dialog may be about to load or change what a run would read.
    const bool isBlocked = QApplication::activeModalWidget() != nullptr;
    if (!state_.AutoTranscribe || isBlocked || ticks_ == std::numeric_limits<qint16>::max())
        return;
    if (++ticks_ == ticksUntilRun)
        PrepareGeneration();
}
