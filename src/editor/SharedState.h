#pragma once

#include "editor/PaneCode.h"
#include "editor/Settings.h"

#include <QString>
#include <QVariant>

/// What the whole program shares. Start-up owns the one instance and passes it to whoever needs it.
struct SharedState
{
    ::Settings Settings;

    QString ProgramFolder; ///< the program's own folder, without a separator at its end
    QString HelpFile;      ///< full name of the help file

    PaneCode ActivePane = PaneCode::None; ///< the pane that last had the focus

    QString TransferText;   ///< text handed between the main window and a dialog
    QVariant TransferValue; ///< word or value handed between the main window and a dialog

    bool AbortRequested = false; ///< set by Esc, cleared when a transcription starts
    double Progress = 0;         ///< of the running transcription, 0 to 1
    bool AutoTranscribe = false; ///< not stored: off at every start

    qint16 NextListItem = 0; ///< list item, 0 to 23, that the calculator offers next; not stored
};
