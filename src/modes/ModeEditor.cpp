#include "modes/ModeEditor.h"

#include "editor/Settings.h"
#include "platform/CommonDialog.h"
#include "platform/MessageBox.h"
#include "platform/StartProgram.h"

#include <QApplication>
#include <QFileInfo>

namespace {

bool userWillLocate(QWidget &window)
{
    const Message question = {
        .text = QStringLiteral("Quillon could not find the file ModeSmith.exe. "
                               "Would you like to tell the program where to find this file?"),
        .title = QStringLiteral("Error launching the Mode Editor"),
        .icon = QMessageBox::Warning,
        .buttons = QMessageBox::Yes | QMessageBox::No};
    return showMessage(&window, question) == QMessageBox::Yes;
}

} // namespace

void ModeEditor::runModeSmith()
{
    if (!QFileInfo(settings_.EditorPath).isFile()) {
        QApplication::beep();
        if (!userWillLocate(window_) || !locate())
            return;
    }
    startProgram(settings_.EditorPath, settings_.CurrentMode.split(u' ', Qt::SkipEmptyParts));
}

bool ModeEditor::locate()
{
    const auto file = showOpenDialog(&window_, {.title = QStringLiteral("Locate ModeSmith.exe"),
                                                .filters = {QStringLiteral("ModeSmith.exe")},
                                                .refusal = refuseMissingFile});
    if (!file || !QFileInfo(file->path).isFile())
        return false;
    settings_.EditorPath = file->path;
    isLocated_ = true;
    return true;
}
