#include "app/DocumentCommands.h"

#include "app/CaptionLabel.h"
#include "app/Form1.h"
#include "app/Subjects.h"
#include "editor/SharedState.h"
#include "platform/RichTextBox.h"
#include "platform/RunCommand.h"

#include <QAction>

using namespace Qt::Literals::StringLiterals;

namespace {

using Operation = void (PaneDocuments::*)(RichTextBox &);

void connectFileMenu(Form1 &form, const SharedState &state, Subjects &subjects)
{
    const auto onActivePane = [&state, &subjects](Operation operation) {
        return [&state, &subjects, operation] {
            if (RichTextBox *pane = subjects.panes.pane(state.ActivePane))
                (subjects.documents.*operation)(*pane);
        };
    };
    // A text must not be replaced while a transcription is about to write into it.
    const auto whenIdle = [&subjects](const Commands::Handler &command) {
        return [&subjects, command] { subjects.run.whenIdle(command); };
    };
    Commands &commands = form.commands();
    commands.connect({"mnuFNew"_L1, "Toolbar1.New"_L1},
                     whenIdle(onActivePane(&PaneDocuments::NewDocument)));
    commands.connect({"mnuFClearAll"_L1}, whenIdle([&subjects] {
                         subjects.documents.NewDocument(subjects.panes.source);
                         subjects.documents.NewDocument(subjects.panes.target);
                     }));
    commands.connect({"mnuFOpen"_L1, "Toolbar1.Open"_L1},
                     whenIdle(onActivePane(&PaneDocuments::OpenDocument)));
    commands.connect({"mnuFSave"_L1, "Toolbar1.Save"_L1},
                     onActivePane(&PaneDocuments::SaveDocument));
    commands.connect({"mnuFSaveAs"_L1}, onActivePane(&PaneDocuments::SaveDocumentAs));
    commands.connect({"mnuFPrint"_L1, "Toolbar1.Print"_L1},
                     onActivePane(&PaneDocuments::PrintDocument));
}

void connectHistory(Form1 &form, const SharedState &state, Subjects &subjects)
{
    Commands &commands = form.commands();
    const auto step = [&state, &subjects](void (RtfUndoJournal::*operation)(PaneCode)) {
        return [&state, &subjects, operation] {
            subjects.run.whenIdle([&state, &subjects, operation] {
                (subjects.journal.*operation)(state.ActivePane);
            });
        };
    };
    commands.connect({"mnuEUndo"_L1, "Toolbar1.Undo"_L1}, step(&RtfUndoJournal::UndoLast));
    commands.connect({"mnuERedo"_L1, "Toolbar1.Redo"_L1}, step(&RtfUndoJournal::RedoLast));
    const auto show = [&commands](const UndoState &undoState) {
        commands.action("mnuEUndo"_L1).setEnabled(undoState.canUndo);
        commands.action("Toolbar1.Undo"_L1).setEnabled(undoState.canUndo);
        commands.action("mnuERedo"_L1).setEnabled(undoState.canRedo);
        commands.action("Toolbar1.Redo"_L1).setEnabled(undoState.canRedo);
    };
    show({});
    QObject::connect(&subjects.journal, &RtfUndoJournal::undoStateChanged, &form, show);
}

void connectPane(Form1 &form, Subjects &subjects, RichTextBox &pane)
{
    QObject::connect(&pane, &RichTextBox::filesDropped, &form,
                     [&form, &subjects, &pane](const QStringList &paths) {
                         runCommand(&form, [&] {
                             subjects.run.whenIdle([&subjects, &pane, path = paths.constFirst()] {
                                 subjects.documents.openDropped(pane, path);
                             });
                         });
                     });
}

} // namespace

void connectDocumentCommands(Form1 &form, const SharedState &state, Subjects &subjects)
{
    connectFileMenu(form, state, subjects);
    connectHistory(form, state, subjects);
    connectPane(form, subjects, subjects.panes.source);
    connectPane(form, subjects, subjects.panes.target);
    const FormControls &controls = form.controls();
    QObject::connect(&subjects.documents, &PaneDocuments::captionChanged, &form,
                     [&controls](PaneCode pane, const QString &caption) {
                         (pane == PaneCode::Source ? controls.lblRomanCaption
                                                   : controls.lblTengwarCaption)
                             ->setCaption(caption);
                     });
}
