#pragma once

#include <QtGlobal>

/// What tells a number or a list item from a word, by its place in the lists of indicators.
enum class Indicator : qint16 { None = 0, Dot = 1, Bar = 2 };
