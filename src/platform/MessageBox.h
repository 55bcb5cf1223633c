#pragma once

#include <QMessageBox>
#include <QString>

/// The program's title, as captions and untitled message boxes show it.
[[nodiscard]] QString programTitle();

/// A message for the user. All of it is shown as it stands, never as markup.
struct Message
{
    QString text;
    QString title = {}; ///< empty for the program's title
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QMessageBox::StandardButtons buttons = QMessageBox::Ok;
    QMessageBox::StandardButton defaultButton = QMessageBox::NoButton; ///< none: the first one
};

/// Shows a message box over `window` (may be null) and waits for the answer; closing the box
/// answers as Escape does. The box's object name is "messageBox".
QMessageBox::StandardButton showMessage(QWidget *window, const Message &message);
