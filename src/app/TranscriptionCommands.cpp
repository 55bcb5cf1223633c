#include "app/TranscriptionCommands.h"

#include "app/Form1.h"
#include "app/Subjects.h"
#include "app/ToolbarCombo.h"
#include "editor/SharedState.h"
#include "engine/run/ChooseMode.h"
#include "modes/frmModes.h"
#include "platform/RunCommand.h"

#include <QAction>

using namespace Qt::Literals::StringLiterals;

void showModes(Form1 &form, SharedState &state)
{
    frmModes dialog(
        state, [&form] { form.refillModeList(); }, &form);
    dialog.exec();
}

void connectTranscriptionCommands(Form1 &form, SharedState &state, Subjects &subjects)
{
    TranscriptionRun &run = subjects.run;
    Commands &commands = form.commands();
    commands.connect({"mnuTTranscribe"_L1, "Toolbar1.Transcribe"_L1},
                     [&run] { run.PrepareGeneration(); });
    commands.connect({"mnuTAutoTranscribe"_L1}, [&run] { run.toggleAutoTranscribe(); });
    commands.connect({"mnuTMode"_L1}, [&form, &state, &run] {
        showModes(form, state);
        if (state.TransferValue.toString() == "Transcribe"_L1)
            run.PrepareGeneration();
    });
    commands.connect({"mnuTRunModeSmith"_L1}, [&subjects] { subjects.modeEditor.runModeSmith(); });

    QObject::connect(&run, &TranscriptionRun::message, &form, &Form1::DisplayMessage);
    QObject::connect(&run, &TranscriptionRun::progress, &form, &Form1::showProgress);
    QAction &button = commands.action("Toolbar1.Transcribe"_L1);
    button.setCheckable(true);
    QObject::connect(&run, &TranscriptionRun::autoTranscribeChanged, &form,
                     [&commands, &button](bool isOn) {
                         commands.action("mnuTAutoTranscribe"_L1).setChecked(isOn);
                         commands.action("mnuTTranscribe"_L1).setEnabled(!isOn);
                         button.setChecked(isOn);
                         button.setEnabled(!isOn);
                     });

    auto *modes = form.controls().cboModeName;
    QObject::connect(modes, &ToolbarCombo::activated, &form, [&form, &state, modes](int index) {
        runCommand(&form, [&] { chooseMode(modes->itemText(index), state.Settings); });
    });
}
