#pragma once

#include "app/ToolbarTable.h"

#include <utility>
#include <vector>

class QToolBar;
class QWidget;

/// The controls that sit at the placeholders of a toolbar, by their keys.
using ToolbarControls = std::vector<std::pair<QLatin1StringView, QWidget *>>;

/// Fills the toolbar, which must have its name, with the table's actions, all disabled. The toolbar
/// owns everything in it. No button takes the focus; one whose action has the property `mixed`
/// looks neither pressed nor released.
void buildToolbar(QToolBar &toolbar, std::span<const ToolbarEntry> table,
                  const ToolbarControls &controls);
