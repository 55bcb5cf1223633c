#include "app/Subjects.h"

#include "app/Form1.h"
#include "app/ToolbarCombo.h"
#include "app/TranscriptionCommands.h"
#include "editor/SharedState.h"
#include "platform/RichTextBox.h"

#include <QDir>
#include <QStandardPaths>

using namespace Qt::Literals::StringLiterals;

namespace {

QString userFolder(QStandardPaths::StandardLocation location, QLatin1StringView name)
{
    return QDir(QStandardPaths::writableLocation(location)).filePath(name);
}

FormatControls formatControls(Form1 &form)
{
    const FormControls &controls = form.controls();
    const Commands &commands = form.commands();
    const auto button = [&commands](QLatin1StringView name) -> QAction & {
        return commands.action(name);
    };
    return {*controls.cboFontName,
            *controls.cboFontSize,
            button("tbrFormat.FormatBold"_L1),
            button("tbrFormat.FormatItalic"_L1),
            button("tbrFormat.FormatUnderline"_L1),
            button("tbrFormat.FormatLarger"_L1),
            button("tbrFormat.FormatSmaller"_L1),
            button("tbrFormat.LeftAlign"_L1),
            button("tbrFormat.RightAlign"_L1),
            button("tbrFormat.CenterAlign"_L1),
            button("tbrFormat.BulletedList"_L1),
            button("mnuFBulletedList"_L1),
            *controls.SelText};
}

} // namespace

Subjects::Subjects(Form1 &form, SharedState &state, StoredSettings &stored)
    : panes{*form.controls().rtbRoman, *form.controls().rtbTengwar},
      journalFolder(state.ProgramFolder,
                    userFolder(QStandardPaths::GenericCacheLocation, "quillon"_L1)),
      journal({form, panes.source, panes.target, journalFolder}),
      documents({form, panes.source, panes.target, journal}, state.ProgramFolder,
                userFolder(QStandardPaths::GenericDataLocation, "quillon/rescue"_L1)),
      run(state,
          {form, panes.source, panes.target, journal, form.tmrStatus(), form.tmrAutoGenerate()},
          [&form, &state] { showModes(form, state); }),
      modeEditor(state.Settings, form), edit(state, journal), format(state, panes, journal),
      indicator(formatControls(form)), keys(form, journal, paneCommands(form)),
      search(
          state, panes, [this] { return run.isRunning(); }, form),
      insert(state, panes, journal, stored, form), glyphs(panes.target, journal), help(state, form)
{
    keys.watch(panes.source, PaneCode::Source);
    keys.watch(panes.target, PaneCode::Target);
}

PaneCommands Subjects::paneCommands(Form1 &form)
{
    return {
        .Undo = [this](PaneCode code) { run.whenIdle([this, code] { journal.UndoLast(code); }); },
        .Redo = [this](PaneCode code) { run.whenIdle([this, code] { journal.RedoLast(code); }); },
        .Cut = [this](PaneCode code) { edit.Cut(*panes.pane(code)); },
        .Copy = [this](PaneCode code) { EditCommands::Copy(*panes.pane(code)); },
        .Paste = [this](PaneCode code) { edit.Paste(*panes.pane(code)); },
        .SelectAll = [this](PaneCode code) { EditCommands::SelectAll(*panes.pane(code)); },
        .otherPane =
            [&form](PaneCode code) {
                form.pane(code == PaneCode::Source ? PaneCode::Target : PaneCode::Source)
                    ->setFocus();
            },
    };
}
