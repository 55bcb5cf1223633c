#include "app/PaneShortcuts.h"

#include <QAction>
#include <QKeyEvent>
#include <QWidget>

namespace {

bool belongsToPane(const QKeyEvent &key)
{
    constexpr Qt::Key Keys[] = {Qt::Key_Z, Qt::Key_Y, Qt::Key_X,  Qt::Key_C,
                                Qt::Key_V, Qt::Key_A, Qt::Key_Tab};
    return key.modifiers() == Qt::ControlModifier &&
           std::find(std::begin(Keys), std::end(Keys), key.key()) != std::end(Keys);
}

/// What a menu would show for the key: where on the keyboard it lies doesn't matter.
QKeySequence sequence(const QKeyEvent &key)
{
    return QKeyCombination(key.modifiers() & ~Qt::KeypadModifier, Qt::Key(key.key()));
}

} // namespace

PaneShortcuts::PaneShortcuts(const QList<QAction *> &menuItems, QObject *parent) : QObject(parent)
{
    for (const QAction *item : menuItems) {
        if (!item->shortcut().isEmpty())
            ofMenus_.insert(item->shortcut());
    }
}

void PaneShortcuts::watch(QWidget &pane)
{
    pane.installEventFilter(this);
}

bool PaneShortcuts::eventFilter(QObject *, QEvent *event)
{
    const bool asks = event->type() == QEvent::ShortcutOverride;
    if (!asks && event->type() != QEvent::KeyPress)
        return false;
    auto &key = *static_cast<QKeyEvent *>(event);
    if (belongsToPane(key)) {
        if (asks)
            key.accept();
        return asks;
    }
    if (!ofMenus_.contains(sequence(key)))
        return false;
    key.setAccepted(!asks); // an ignored question leaves the key to the menu
    return true;
}
