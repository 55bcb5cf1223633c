#include "app/MenuTable.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr MenuEntry Table[] = {
    {0, "mnuFile"_L1, "&File"_L1},
    {1, "mnuFNew"_L1, "&New"_L1, "Ctrl+N"_L1},
    {1, "mnuFClearAll"_L1, "&Both new"_L1, "Ctrl+Shift+N"_L1},
    {1, "mnuFLine1"_L1, "-"_L1},
    {1, "mnuFOpen"_L1, "&Open..."_L1, "Ctrl+O"_L1},
    {1, "mnuFLine2"_L1, "-"_L1},
    {1, "mnuFSave"_L1, "&Save"_L1, "Ctrl+S"_L1},
    {1, "mnuFSaveAs"_L1, "Save &as..."_L1, "Ctrl+Shift+S"_L1},
    {1, "mnuFLine3"_L1, "-"_L1},
    {1, "mnuFPrint"_L1, "&Print..."_L1, "Ctrl+P"_L1},
    {1, "mnuFLine4"_L1, "-"_L1},
    {1, "mnuFExit"_L1, "&Exit"_L1, "Ctrl+Q"_L1},

    {0, "mnuEdit"_L1, "&Edit"_L1},
    {1, "mnuEUndo"_L1, "&Undo"_L1, "Ctrl+Z"_L1},
    {1, "mnuERedo"_L1, "&Redo"_L1, "Ctrl+Y"_L1},
    {1, "mnuELine1"_L1, "-"_L1},
    {1, "mnuECut"_L1, "&Cut"_L1, "Ctrl+X"_L1},
    {1, "mnuECopy"_L1, "C&opy"_L1, "Ctrl+C"_L1},
    {1, "mnuEPaste"_L1, "&Paste"_L1, "Ctrl+V"_L1},
    {1, "mnuEClear"_L1, "Cl&ear"_L1},
    {1, "mnuESelectAll"_L1, "Select &all"_L1, "Ctrl+A"_L1},
    {1, "mnuELine2"_L1, "-"_L1},
    {1, "mnuEFind"_L1, "&Find"_L1, "Ctrl+F"_L1},
    {1, "mnuEReplace"_L1, "&Replace"_L1, "Ctrl+H"_L1},
    {1, "mnuELine3"_L1, "-"_L1},
    {1, "mnuEPreferences"_L1, "&Preferences..."_L1, "Ctrl+,"_L1},

    {0, "mnuView"_L1, "&View"_L1},
    {1, "mnuVStandardToolbar"_L1, "&Standard toolbar"_L1, {}, MenuMark::Check},
    {1, "mnuVFormattingToolbar"_L1, "&Formatting toolbar"_L1, {}, MenuMark::Check},
    {1, "mnuVStatusBar"_L1, "S&tatus bar"_L1, {}, MenuMark::Check},

    {0, "mnuInsert"_L1, "&Insert"_L1},
    {1, "mnuINumerical"_L1, "&Numerical tengwar"_L1},
    {1, "mnuISpecialCharacters"_L1, "&Special characters"_L1},

    {0, "mnuFormat"_L1, "&Format"_L1},
    {1, "mnuFFont"_L1, "&Font..."_L1},
    {1, "mnuFParagraph"_L1, "&Paragraph..."_L1},
    {1, "mnuFStyle"_L1, "&Style"_L1},
    {2, "mnuFSBold"_L1, "&Bold"_L1, "Ctrl+B"_L1},
    {2, "mnuFSItalic"_L1, "&Italic"_L1, "Ctrl+I"_L1},
    {2, "mnuFSUnderline"_L1, "&Underline"_L1, "Ctrl+U"_L1},
    {1, "mnuFCharOffset"_L1, "&Char offset"_L1},
    {2, "mnuFCSuper"_L1, "Su&perscript (+)"_L1},
    {2, "mnuFCNormal"_L1, "&Normal"_L1},
    {2, "mnuFCSub"_L1, "Su&bscript (-)"_L1},
    {1, "mnuFAlignment"_L1, "&Alignment"_L1},
    {2, "mnuFALeftJustify"_L1, "&Left justify"_L1, "Ctrl+L"_L1},
    {2, "mnuFARightJustify"_L1, "&Right justify"_L1, "Ctrl+R"_L1},
    {2, "mnuFACenter"_L1, "&Center"_L1, "Ctrl+E"_L1},
    {1, "mnuFBulletedList"_L1, "&Bulleted list"_L1, {}, MenuMark::Check},

    {0, "mnuTengwar"_L1, "&Tengwar"_L1},
    {1, "mnuTMode"_L1, "&Modes..."_L1},
    {1, "mnuTTranscribe"_L1, "&Transcribe"_L1, "Ctrl+T"_L1},
    {1, "mnuTAutoTranscribe"_L1, "&Auto transcribe"_L1, {}, MenuMark::Check},
    {1, "mnuTLine3"_L1, "-"_L1},
    {1, "mnuTRunModeSmith"_L1, "&Edit mode"_L1},
    {1, "mnuTLine1"_L1, "-"_L1},
    {1, "mnuTFindNext"_L1, "Find &next unknown character"_L1},
    {1, "mnuTFindPrevious"_L1, "Find &previous unknown character"_L1},
    {1, "mnuTLine2"_L1, "-"_L1},
    {1, "mnuTSwitchLineStyle"_L1, "Switch &line style"_L1},
    {2, "mnuTSStraightToCurled"_L1, "Straight to &curled"_L1},
    {2, "mnuTSCurledToStraight"_L1, "Curled to &straight"_L1},
    {1, "mnuTSwitchSCurlStyle"_L1, "Switch &s-curl style"_L1},
    {2, "mnuTSStandardToLooped"_L1, "Standard to &looped"_L1},
    {2, "mnuTSLoopedToStandard"_L1, "Looped to &standard"_L1},

    {0, "mnuPane"_L1, "&Pane"_L1},
    {1, "mnuPSource"_L1, "&Source"_L1, {}, MenuMark::Check},
    {1, "mnuPTarget"_L1, "&Target"_L1, {}, MenuMark::Check},

    {0, "mnuHelp"_L1, "&Help"_L1},
    {1, "mnuHContents"_L1, "&Contents"_L1, "F1"_L1},
    {1, "mnuHLine1"_L1, "-"_L1},
    {1, "mnuHAbout"_L1, "&About..."_L1},
};

} // namespace

std::span<const MenuEntry> menuTable()
{
    return Table;
}
