#include "platform/RunCommand.h"

#include "platform/MessageBox.h"
#include <new>

void showRuntimeError(QWidget *window, const RuntimeError &error)
{
    showMessage(window, {.text = error.message()});
}

bool runCommand(QWidget *window, const std::function<void()> &command)
{
    try {
        command();
        return true;
    } catch (const RuntimeError &error) {
        showRuntimeError(window, error);
    } catch (const std::bad_alloc &) {
        showRuntimeError(window, RuntimeError(ErrorNumber::OutOfMemory));
    }
    return false;
}
