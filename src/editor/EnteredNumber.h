#pragma once

#include <QStringView>
#include <optional>

/// A number as people write it: digits, one decimal sign "." or "," among them, a sign before them
/// and spaces around. None for anything else, exponents and grouped digits included.
[[nodiscard]] std::optional<double> enteredNumber(QStringView text);
