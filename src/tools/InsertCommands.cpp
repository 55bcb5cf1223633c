#include "tools/InsertCommands.h"

#include "editor/SharedState.h"
#include "editor/UndoJournal.h"
#include "platform/RichTextBox.h"
#include "tools/frmCalculator.h"
#include "tools/frmSpecialCharacters.h"

#include <QRegularExpression>
#include <limits>

namespace {

/// The font in which a text inserted at the start of the selection is written.
QString fontAtStart(const RichTextBox &pane)
{
    QTextCursor start = pane.textCursor();
    start.setPosition(start.selectionStart());
    return CharacterFormat::of(start.charFormat(), pane.document()->defaultFont()).family;
}

} // namespace

QString leadingNumber(const QString &text)
{
    constexpr int MostCharacters = 9;
    static const QRegularExpression number(
        QStringLiteral("^\\s*\\+?([0-9]+\\.?[0-9]*|\\.[0-9]+)(e[+-]?[0-9]+)?"),
        QRegularExpression::CaseInsensitiveOption);
    const QString found = number.match(text.left(MostCharacters)).captured().trimmed();
    const double value = found.toDouble(); // 0 where it is infinite or there is none
    const bool isUsable = value > 0 && value <= std::numeric_limits<qint32>::max();
    return isUsable ? QString::number(qint32(value)) : QString();
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
    state_.TransferValue = pane->SelFormat().fontName.value_or(fontAtStart(*pane));
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
