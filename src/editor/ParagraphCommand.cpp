#include "editor/ParagraphCommand.h"

#include "editor/SharedState.h"
#include "editor/UndoJournal.h"
#include "editor/frmParagraph.h"
#include "platform/RichTextBox.h"

namespace {

template<typename Value>
void set(RichTextBox &pane, void (RichTextBox::*setter)(Value), std::optional<Value> value)
{
    if (value)
        (pane.*setter)(*value);
}

} // namespace

void editParagraphs(const SharedState &state, const Panes &panes, UndoJournal &journal,
                    QWidget *window)
{
    RichTextBox *pane = panes.pane(state.ActivePane);
    if (pane == nullptr)
        return;
    frmParagraph dialog(state.Settings, pane->SelFormat(), window);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const ParagraphAttributes &entered = dialog.entered();
    journal.SaveUndoState(state.ActivePane);
    set(*pane, &RichTextBox::setSelIndent, entered.indent);
    set(*pane, &RichTextBox::setSelHangingIndent, entered.hangingIndent);
    set(*pane, &RichTextBox::setSelRightIndent, entered.rightIndent);
    set(*pane, &RichTextBox::setBulletIndent, entered.bulletIndent);
    set(*pane, &RichTextBox::setSelAlignment, entered.alignment);
}
