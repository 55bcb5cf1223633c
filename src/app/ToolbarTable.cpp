#include "app/ToolbarTable.h"

using namespace Qt::Literals::StringLiterals;

namespace {

using enum ToolbarItem;

constexpr ToolbarEntry Standard[] = {
    {Button, "New"_L1, "New"_L1},
    {Button, "Open"_L1, "Open"_L1},
    {Button, "Save"_L1, "Save"_L1},
    {Button, "Print"_L1, "Print"_L1},
    {Line},
    {Button, "Cut"_L1, "Cut"_L1},
    {Button, "Copy"_L1, "Copy"_L1},
    {Button, "Paste"_L1, "Paste"_L1},
    {Line},
    {Button, "Undo"_L1, "Undo"_L1},
    {Button, "Redo"_L1, "Redo"_L1},
    {Line},
    {Placeholder, "Mode"_L1, "Tengwar mode"_L1},
    {Toggle, "Transcribe"_L1, "Transcribe"_L1},
};

constexpr ToolbarEntry Formatting[] = {
    {Placeholder, "FontName"_L1, "Font name"_L1},
    {Placeholder, "FontSize"_L1, "Font size"_L1},
    {Line},
    {Toggle, "FormatBold"_L1, "Bold"_L1},
    {Toggle, "FormatItalic"_L1, "Italic"_L1},
    {Toggle, "FormatUnderline"_L1, "Underline"_L1},
    {Line},
    {Button, "FormatLarger"_L1, "Larger"_L1, "Ctrl++"_L1},
    {Button, "FormatSmaller"_L1, "Smaller"_L1, "Ctrl+-"_L1},
    {Line},
    {Toggle, "LeftAlign"_L1, "Left justify"_L1},
    {Toggle, "CenterAlign"_L1, "Center"_L1},
    {Toggle, "RightAlign"_L1, "Right justify"_L1},
    {Line},
    {Toggle, "BulletedList"_L1, "Bulleted list"_L1},
};

} // namespace

std::span<const ToolbarEntry> standardToolbarTable()
{
    return Standard;
}

std::span<const ToolbarEntry> formattingToolbarTable()
{
    return Formatting;
}
