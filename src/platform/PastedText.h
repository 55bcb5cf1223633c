#pragma once

#include <QString>

/// Text from elsewhere as a pane takes it: line ends of any kind become CR LF, and the control
/// codes 0 to 8 and 14 to 31, which no text holds, are left out.
[[nodiscard]] QString pastedText(const QString &text);
