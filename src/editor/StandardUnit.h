#pragma once

#include <QStringView>
#include <optional>

/// Twips to one of the units "mm", "cm", "in" and "pt"; none for any other unit. How many twips a
/// pixel has, the screen alone knows.
[[nodiscard]] std::optional<double> twipsPerUnit(QStringView unit);
