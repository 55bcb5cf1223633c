#pragma once

#include <QLatin1StringView>
#include <span>

/// Whether a menu item can show a check mark. The mark follows the program's state, never the click
/// alone.
enum class MenuMark : quint8 { None, Check };

/// One line of the menu tree. An entry followed by deeper ones is a menu, one whose caption is "-"
/// a separator, any other an item.
struct MenuEntry
{
    int depth; ///< 0 in the menu bar
    QLatin1StringView name;
    QLatin1StringView caption;
    QLatin1StringView shortcut = {}; ///< in portable form; may be empty
    MenuMark mark = MenuMark::None;
};

/// The whole menu tree in the order in which it is shown.
[[nodiscard]] std::span<const MenuEntry> menuTable();
