#pragma once

#include <functional>

class QLineEdit;

/// From now on every character typed into the text box goes through the filter, which gives the
/// character to keep, or 0 to reject it. Keys that type nothing, and pasted text, are left alone.
void filterTypedKeys(QLineEdit &control, std::function<char16_t(char16_t)> filter);
