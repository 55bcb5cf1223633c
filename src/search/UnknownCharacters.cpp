#include "search/UnknownCharacters.h"

#include "platform/MessageBox.h"
#include "platform/RichTextBox.h"
#include "platform/TextPosition.h"

namespace {

void tell(QWidget *window, const QString &text)
{
    showMessage(window, {.text = text, .icon = QMessageBox::Information});
}

} // namespace

void findNextUnknownCharacter(QWidget *window, RichTextBox &pane, const QString &undefinedText)
{
    if (undefinedText.isEmpty())
        return;
    if (pane.find(undefinedText, pane.SelStart() + 1, pane.TextLength(), FindFlag::MatchCase) < 0)
        tell(window, QStringLiteral("The search reached the end of the document."));
}

void findPreviousUnknownCharacter(QWidget *window, RichTextBox &pane, const QString &undefinedText)
{
    const int start = pane.SelStart();
    if (undefinedText.isEmpty() || start < 1)
        return;
    // The same as trying each place before the selection, one after the other, but in one go.
    const auto match = int(pane.Text().lastIndexOf(userForm(undefinedText), start - 1));
    if (match < 0)
        tell(window, QStringLiteral("The search reached the beginning of the document."));
    else
        pane.find(undefinedText, match, match + 1, FindFlag::MatchCase);
}
