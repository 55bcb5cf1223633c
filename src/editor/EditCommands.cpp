#include "editor/EditCommands.h"

#include "editor/SharedState.h"
#include "editor/UndoJournal.h"
#include "platform/PastedText.h"
#include "platform/RichTextBox.h"

#include <QClipboard>
#include <QGuiApplication>

void EditCommands::recordState()
{
    journal_.SaveUndoState(state_.ActivePane);
}

void EditCommands::Cut(RichTextBox &pane)
{
    recordState();
    Copy(pane);
    pane.setSelText({});
}

void EditCommands::Copy(const RichTextBox &pane)
{
    QGuiApplication::clipboard()->setText(pane.SelText());
}

void EditCommands::Paste(RichTextBox &pane)
{
    recordState();
    pane.setSelText(pastedText(QGuiApplication::clipboard()->text()));
}

void EditCommands::Clear(RichTextBox &pane)
{
    recordState();
    pane.setSelText({});
}

void EditCommands::SelectAll(RichTextBox &pane)
{
    pane.setSelStart(0);
    pane.setSelLength(pane.TextLength());
}
