#include "app/ToolCommands.h"

#include "app/Form1.h"
#include "app/Subjects.h"
#include "editor/ApplyFormFonts.h"
#include "editor/SharedState.h"
#include "preferences/frmPreferences.h"

#include <QAction>
#include <QMenu>

using namespace Qt::Literals::StringLiterals;

namespace {

void connectSearch(Form1 &form, const SharedState &state, SearchCommands &search)
{
    Commands &commands = form.commands();
    commands.connect({"mnuEFind"_L1}, [&search] { search.showFind(); });
    commands.connect({"mnuEReplace"_L1}, [&search] { search.showReplace(); });
    commands.connect({"mnuTFindNext"_L1}, [&search] { search.findNextUnknown(); });
    commands.connect({"mnuTFindPrevious"_L1}, [&search] { search.findPreviousUnknown(); });
    auto *menu = form.findChild<QMenu *>("mnuTengwar"_L1);
    QObject::connect(menu, &QMenu::aboutToShow, &form, [&commands, &state] {
        // Characters that were skipped have left nothing to be found.
        const bool leavesMarks = !state.Settings.UndefinedText.isEmpty();
        commands.action("mnuTFindNext"_L1).setEnabled(leavesMarks);
        commands.action("mnuTFindPrevious"_L1).setEnabled(leavesMarks);
    });
}

void connectTengwarTools(Form1 &form, Subjects &subjects)
{
    Commands &commands = form.commands();
    InsertCommands &insert = subjects.insert;
    GlyphVariants &glyphs = subjects.glyphs;
    commands.connect({"mnuINumerical"_L1}, [&insert] { insert.insertNumerals(); });
    commands.connect({"mnuISpecialCharacters"_L1}, [&insert] { insert.insertSpecialCharacters(); });
    commands.connect({"mnuTSStraightToCurled"_L1}, [&glyphs] { glyphs.straightToCurled(); });
    commands.connect({"mnuTSCurledToStraight"_L1}, [&glyphs] { glyphs.curledToStraight(); });
    commands.connect({"mnuTSStandardToLooped"_L1}, [&glyphs] { glyphs.standardToLooped(); });
    commands.connect({"mnuTSLoopedToStandard"_L1}, [&glyphs] { glyphs.loopedToStandard(); });
}

} // namespace

void connectToolCommands(Form1 &form, SharedState &state, StoredSettings &stored,
                         const QStringList &fonts, Subjects &subjects)
{
    connectSearch(form, state, subjects.search);
    connectTengwarTools(form, subjects);
    form.commands().connect({"mnuHContents"_L1}, [&subjects] { subjects.help.showContents(); });
    form.commands().connect({"mnuEPreferences"_L1}, [&form, &state, &stored, fonts] {
        const auto applySettings = [&form, &state] {
            form.refillModeList();
            ApplyFormFonts(form, state.Settings);
        };
        frmPreferences(state, stored, fonts, applySettings, &form).exec();
    });
}
