#pragma once

#include <QLatin1StringView>
#include <span>

/// What stands at one place of a toolbar.
enum class ToolbarItem : quint8 {
    Button,      ///< acts when clicked
    Toggle,      ///< can look pressed, as the program's state says, or mixed
    Placeholder, ///< a combo box sits here
    Line,        ///< separates groups
};

/// One place of a toolbar. The action of a button is named after its toolbar and key
/// ("Toolbar1.New"), its picture after its key ("New.svg").
struct ToolbarEntry
{
    ToolbarItem item;
    QLatin1StringView key = {};
    QLatin1StringView tip = {};
    QLatin1StringView shortcut = {}; ///< of a button that no menu item stands for
};

[[nodiscard]] std::span<const ToolbarEntry> standardToolbarTable();
[[nodiscard]] std::span<const ToolbarEntry> formattingToolbarTable();
