#pragma once

#include <QtGlobal>

/// Names a pane, or both of them, by the numbers that commands hand around. Commands do nothing for
/// a code that names no pane they know.
enum class PaneCode : qint16 {
    None = 0,
    Source = 1, ///< the pane rtbRoman
    Target = 2, ///< the pane rtbTengwar
    Both = 3,   ///< the Source pane first
};
