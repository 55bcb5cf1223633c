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
    } catch (const std::exception &error) {
        // A fault of ours. Qt's code must not meet it, and the texts in hand must outlive it.
        showRuntimeError(window, RuntimeError(ErrorNumber::InvalidProcedureCall,
                                              QString::fromUtf8(error.what())));
    }
    return false;
}
