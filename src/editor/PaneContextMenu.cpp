#include "editor/PaneContextMenu.h"

#include "platform/RichTextBox.h"

#include <QMenu>

void setContextMenu(RichTextBox &pane, const QList<QAction *> &commands)
{
    const auto open = [&pane, commands](const QPoint &place) {
        pane.setFocus();
        auto *menu = new QMenu(&pane);
        menu->setObjectName(QStringLiteral("contextMenu"));
        menu->setAttribute(Qt::WA_DeleteOnClose);
        menu->addActions(commands);
        menu->popup(pane.viewport()->mapToGlobal(place));
    };
    QObject::connect(&pane, &QWidget::customContextMenuRequested, &pane, open);
}
