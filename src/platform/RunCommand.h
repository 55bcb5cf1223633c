#pragma once

#include "engine/RuntimeError.h"
#include <functional>

class QWidget;

/// The one door through which every command enters: from a menu, a toolbar, a key, a timer or a
/// dialog's button. A run-time error or exhausted memory ends the command, is shown over `window`
/// (may be null) in a message box under the program's title, and leaves the program running. So no
/// exception passes through Qt's own code.
///
/// True if the command ran to its end.
bool runCommand(QWidget *window, const std::function<void()> &command);

/// Shows the error as runCommand does.
void showRuntimeError(QWidget *window, const RuntimeError &error);
