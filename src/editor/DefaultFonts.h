#pragma once

#include <QStringList>

/// The font for Tengwar where none is stored: the classic ones by name, else the last font with
/// "tengwa" in its name, else the first of the list. Empty for an empty list.
[[nodiscard]] QString ChooseDefaultTengwarFont(const QStringList &installed);

/// The font for roman text where none is stored: a few readable ones by name, else the first of the
/// list. Empty for an empty list.
[[nodiscard]] QString ChooseDefaultTextFont(const QStringList &installed);
