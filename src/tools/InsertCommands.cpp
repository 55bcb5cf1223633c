#include "tools/InsertCommands.h"

#include "editor/SharedState.h"
#include "editor/UndoJournal.h"
#include "platform/RichTextBox.h"
#include "tools/frmCalculator.h"
#include "tools/frmSpecialCharacters.h"

#include <QRegularExpression>

QString leadingNumber(const QString &text)
{
    constexpr int MostCharacters = 9; // every such number fits into 32 bits
    static const QRegularExpression number(QStringLiteral("^\\s*\\+?([0-9]+)"));
    const QString digits = number.match(text.left(MostCharacters)).captured(1);
    const qint32 value = digits.toInt();
    return value > 0 ? QString::number(value) : QString();
}

void InsertCommands::insertNumerals()
{
    frmCalculator dialog(state_, stored_, &window_);
    if (const QString number = leadingNumber(panes_.source.SelText()); !number.isEmpty())
        dialog.enterDecimal(number);
    if (dialog.exec() != QDialog::Accepted)
        return;
    insert(PaneCode::Target);
    state_.TransferText.clear();
}

void InsertCommands::insertSpecialCharacters()
{
    RichTextBox *pane = panes_.pane(state_.ActivePane);
    if (pane == nullptr)
        return;
    state_.TransferValue = pane->SelFormat().fontName.value_or(pane->currentFont().family());
    frmSpecialCharacters(state_, &window_).exec();
    insert(state_.ActivePane);
    pane->setFocus();
}

void InsertCommands::insert(PaneCode code)
{
    RichTextBox &pane = *panes_.pane(code);
    if (!state_.TransferText.isEmpty())
        journal_.SaveUndoState(code);
    pane.setSelLength(0);
    if (!state_.TransferText.isEmpty())
        pane.setSelText(state_.TransferText);
}
