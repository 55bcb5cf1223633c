#pragma once

#include <QKeySequence>
#include <QObject>
#include <QSet>

class QAction;
class QKeyEvent;
class QWidget;

/// Decides for each key combination pressed in a pane whether the pane or the menu takes it, so
/// that it acts exactly once. The pane's own Ctrl keys, clipboard, undo and the change of panes,
/// stay with the pane's key handler, although menus show most of them. Every other combination that
/// a menu shows belongs to the menu: the pane never acts on it, not even while the item is
/// disabled.
class PaneShortcuts final : public QObject
{
    Q_OBJECT

public:
    /// `menuItems` are all the items whose shortcuts count.
    PaneShortcuts(const QList<QAction *> &menuItems, QObject *parent);

    void watch(QWidget &pane);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QSet<QKeySequence> ofMenus_;
};
