#pragma once

#include "tools/Indicator.h"

#include <QString>
#include <QStringList>

/// How many items a list can have: as many as there are primary letters.
inline constexpr int ListItemCount = 24;

/// What the items stand for, for people: "1, a, I ..." and so on.
[[nodiscard]] QStringList listItemTexts();

/// The letter of an item, 0 to 23, with the mark of the indicator, in characters of a Tengwar font.
[[nodiscard]] QString tengwarListItem(int item, Indicator indicator);
