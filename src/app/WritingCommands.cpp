#include "app/WritingCommands.h"

#include "app/Form1.h"
#include "app/Subjects.h"
#include "app/ToolbarCombo.h"
#include "editor/EnteredText.h"
#include "editor/PaneContextMenu.h"
#include "editor/ParagraphCommand.h"
#include "editor/SharedState.h"
#include "platform/RichTextBox.h"
#include "platform/RunCommand.h"

#include <QAction>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint16 offsetStep = 30; // twips

void connectEditMenu(Form1 &form, const SharedState &state, Subjects &subjects)
{
    const auto onActivePane = [&state, &subjects](auto operation) {
        return [&state, &subjects, operation] {
            if (RichTextBox *pane = subjects.panes.pane(state.ActivePane))
                operation(*pane);
        };
    };
    Commands &commands = form.commands();
    EditCommands &edit = subjects.edit;
    commands.connect({"mnuECut"_L1, "Toolbar1.Cut"_L1},
                     onActivePane([&edit](RichTextBox &pane) { edit.Cut(pane); }));
    commands.connect({"mnuECopy"_L1, "Toolbar1.Copy"_L1}, onActivePane(&EditCommands::Copy));
    commands.connect({"mnuEPaste"_L1, "Toolbar1.Paste"_L1},
                     onActivePane([&edit](RichTextBox &pane) { edit.Paste(pane); }));
    commands.connect({"mnuEClear"_L1},
                     onActivePane([&edit](RichTextBox &pane) { edit.Clear(pane); }));
    commands.connect({"mnuESelectAll"_L1}, onActivePane(&EditCommands::SelectAll));

    QList<QAction *> menu;
    for (const auto name : {"mnuEUndo"_L1, "mnuERedo"_L1, "mnuELine1"_L1, "mnuECut"_L1,
                            "mnuECopy"_L1, "mnuEPaste"_L1, "mnuEClear"_L1, "mnuESelectAll"_L1})
        menu.append(&commands.action(name));
    setContextMenu(subjects.panes.source, menu);
    setContextMenu(subjects.panes.target, menu);
}

void connectCharacterCommands(Form1 &form, FormatCommands &format)
{
    Commands &commands = form.commands();
    commands.connect({"mnuFSBold"_L1, "tbrFormat.FormatBold"_L1},
                     [&format] { format.toggleBold(); });
    commands.connect({"mnuFSItalic"_L1, "tbrFormat.FormatItalic"_L1},
                     [&format] { format.toggleItalic(); });
    commands.connect({"mnuFSUnderline"_L1, "tbrFormat.FormatUnderline"_L1},
                     [&format] { format.toggleUnderline(); });
    commands.connect({"tbrFormat.FormatLarger"_L1}, [&format] { format.makeLarger(); });
    commands.connect({"tbrFormat.FormatSmaller"_L1}, [&format] { format.makeSmaller(); });
    commands.connect({"mnuFCSuper"_L1},
                     [&format] { format.setCharOffset(offsetStep, OffsetBase::PresentOffset); });
    commands.connect({"mnuFCSub"_L1},
                     [&format] { format.setCharOffset(-offsetStep, OffsetBase::PresentOffset); });
    commands.connect({"mnuFCNormal"_L1},
                     [&format] { format.setCharOffset(0, OffsetBase::Baseline); });
    commands.connect({"mnuFFont"_L1}, [&form, &format] { format.chooseFont(&form); });
    onEntered(*form.controls().cboFontName, [&form, &format](const QString &name) {
        runCommand(&form, [&] { format.setFontName(name); });
    });
    onEntered(*form.controls().cboFontSize, [&form, &format](const QString &size) {
        runCommand(&form, [&] { format.setFontSize(size); });
    });
}

void connectParagraphCommands(Form1 &form, const SharedState &state, Subjects &subjects)
{
    Commands &commands = form.commands();
    FormatCommands &format = subjects.format;
    const auto align = [&format](Alignment alignment) {
        return [&format, alignment] { format.setAlignment(alignment); };
    };
    commands.connect({"mnuFALeftJustify"_L1, "tbrFormat.LeftAlign"_L1}, align(Alignment::Left));
    commands.connect({"mnuFARightJustify"_L1, "tbrFormat.RightAlign"_L1}, align(Alignment::Right));
    commands.connect({"mnuFACenter"_L1, "tbrFormat.CenterAlign"_L1}, align(Alignment::Center));
    commands.connect({"mnuFBulletedList"_L1, "tbrFormat.BulletedList"_L1},
                     [&format] { format.toggleBulletedList(); });
    commands.connect({"mnuFParagraph"_L1}, [&form, &state, &subjects] {
        editParagraphs(state, subjects.panes, subjects.journal, &form);
    });
}

/// The display belongs to the active pane: a transcription into the other one leaves it alone.
void keepDisplayTrue(Form1 &form, const SharedState &state, PaneCode code)
{
    RichTextBox *pane = form.pane(code);
    const auto indicate = [&form, &state, code, pane] {
        if (state.ActivePane == code)
            runCommand(&form, [&] { form.IndicateRTB(*pane); });
    };
    QObject::connect(pane, &RichTextBox::changed, &form, indicate);
    QObject::connect(pane, &RichTextBox::selectionMoved, &form, indicate);
}

} // namespace

void connectWritingCommands(Form1 &form, const SharedState &state, Subjects &subjects)
{
    connectEditMenu(form, state, subjects);
    connectCharacterCommands(form, subjects.format);
    connectParagraphCommands(form, state, subjects);
    keepDisplayTrue(form, state, PaneCode::Source);
    keepDisplayTrue(form, state, PaneCode::Target);
}
