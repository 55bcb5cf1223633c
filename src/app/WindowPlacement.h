#pragma once

#include <QList>
#include <QRect>

class Form1;
class StoredSettings;

/// Gives the window, not yet shown, the stored place, size, state, splitter and bars, or those of a
/// first start. Throws RuntimeError (Overflow) for a stored number beyond 16 bits.
void restoreWindow(Form1 &form, const StoredSettings &settings);

/// Stores them. Place and size are those of the normal state only, and never beyond 16 bits: a
/// larger window comes back smaller.
void storeWindow(const Form1 &form, StoredSettings &settings);

/// The place nearest to the window's own at which its title bar can be reached on one of the
/// screens, of which there is at least one; all in pixels.
[[nodiscard]] QPoint reachablePlace(const QRect &window, const QList<QRect> &screens);
