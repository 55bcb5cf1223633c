#include "search/SearchCommands.h"

#include "editor/SharedState.h"
#include "platform/RichTextBox.h"
#include "search/UnknownCharacters.h"
#include "search/frmFind.h"

SearchCommands::SearchCommands(SharedState &state, const Panes &panes,
                               std::function<bool()> isTranscribing, QWidget &window)
    : state_(state), panes_(panes), isTranscribing_(std::move(isTranscribing)), window_(window)
{
}

SearchCommands::~SearchCommands() = default;

void SearchCommands::showFind()
{
    open(QStringLiteral("Find"));
}

void SearchCommands::showReplace()
{
    open(QStringLiteral("Replace"));
    dialog_->showReplaceControls();
}

void SearchCommands::open(const QString &how)
{
    if (dialog_ == nullptr || !dialog_->isVisible()) {
        const RichTextBox *pane = panes_.pane(state_.ActivePane);
        state_.TransferValue = how;
        state_.TransferText = pane != nullptr ? pane->SelText() : QString();
        dialog_ = std::make_unique<frmFind>(state_, panes_, isTranscribing_, &window_);
        dialog_->show();
    }
    dialog_->raise();
    dialog_->activateWindow();
}

void SearchCommands::findNextUnknown()
{
    findNextUnknownCharacter(&window_, panes_.target, state_.Settings.UndefinedText);
}

void SearchCommands::findPreviousUnknown()
{
    findPreviousUnknownCharacter(&window_, panes_.target, state_.Settings.UndefinedText);
}
