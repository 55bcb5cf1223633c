#pragma once

#include <QtGlobal>

/// The numbers by which typing is classed. They are those of a keyboard's keys, not of characters.
namespace KeyCode {
inline constexpr qint16 Backspace = 8;
inline constexpr qint16 Enter = 13;
inline constexpr qint16 Space = 32;
inline constexpr qint16 Delete = 46;
} // namespace KeyCode

/// The key code of a Qt::Key. Letters and digits have those of their capital characters; a key that
/// is on no plain keyboard counts as one that types punctuation.
[[nodiscard]] qint16 keyCode(int key);
