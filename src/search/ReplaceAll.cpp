#include "search/ReplaceAll.h"

#include "editor/SharedState.h"
#include "platform/RichTextBox.h"
#include "platform/RunCommand.h"
#include "platform/TextPosition.h"

#include <QElapsedTimer>
#include <QEvent>

namespace {

constexpr qint64 SliceMilliseconds = 20;

} // namespace

void ReplaceAll::start(RichTextBox &pane, const TextSearch &search, const QString &replacement)
{
    if (isRunning())
        return;
    pane_ = &pane;
    search_ = search;
    replacement_ = userForm(replacement);
    beginRounds();
    connect(pane_, &RichTextBox::changed, this, &ReplaceAll::beginRounds);
    pane_->window()->installEventFilter(this);
    runSlice();
}

void ReplaceAll::beginRounds()
{
    rounds_.emplace(pane_->Text(), *search_, replacement_);
}

void ReplaceAll::runSlice()
{
    bool isDone = false;
    const bool hasRun =
        runCommand(&window_, [&] { isDone = state_.AbortRequested || !runRounds(); });
    if (!hasRun) {
        leave();
    } else if (isDone) {
        stop();
    } else {
        Q_EMIT progressed(rounds_->count());
        timer_.start();
    }
}

/// Runs the rounds of one slice; false if there is nothing left to replace.
bool ReplaceAll::runRounds()
{
    QElapsedTimer clock;
    clock.start();
    do {
        if (!rounds_->round())
            return false;
    } while (clock.elapsed() < SliceMilliseconds);
    return true;
}

void ReplaceAll::stop()
{
    if (!isRunning())
        return;
    disconnect(pane_, nullptr, this, nullptr);
    runCommand(&window_, [this] { showResult(); });
    leave();
}

void ReplaceAll::showResult()
{
    if (rounds_->count() == 0)
        return;
    applyEdits(*pane_, rounds_->edits());
    pane_->setSelStart(rounds_->caret());
}

void ReplaceAll::leave()
{
    timer_.stop();
    disconnect(pane_, nullptr, this, nullptr);
    pane_->window()->removeEventFilter(this);
    rounds_.reset();
    Q_EMIT finished();
}

bool ReplaceAll::eventFilter(QObject * /*watched*/, QEvent *event)
{
    // Now, since whoever closes the window asks first whether to save the text.
    if (event->type() == QEvent::Close)
        stop();
    return false;
}
