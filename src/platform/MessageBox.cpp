#include "platform/MessageBox.h"

#include "Version.h"

QString programTitle()
{
    return QStringLiteral(QUILLON_TITLE);
}

QMessageBox::StandardButton showMessage(QWidget *window, const Message &message)
{
    QMessageBox box(message.icon, message.title.isEmpty() ? programTitle() : message.title,
                    message.text, message.buttons, window);
    box.setObjectName(QStringLiteral("messageBox"));
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(message.defaultButton);
    return QMessageBox::StandardButton(box.exec());
}
