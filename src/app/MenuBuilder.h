#pragma once

#include "app/MenuTable.h"

#include <QList>

class QAction;
class QMenuBar;

/// Fills the menu bar with the table's menus and items; the items are disabled. Returns the items
/// without the separators. The menu bar owns everything in it.
QList<QAction *> buildMenus(QMenuBar &menuBar, std::span<const MenuEntry> table);
