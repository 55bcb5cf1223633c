#pragma once

#include <QList>

class QAction;
class RichTextBox;

/// From now on a right click in the pane, or the menu key, opens a menu of these commands; their
/// separators part it into groups. The pane gets the focus first, so that they act on it.
void setContextMenu(RichTextBox &pane, const QList<QAction *> &commands);
