#pragma once

#include <QString>
#include <functional>

class QComboBox;

/// Calls `apply` with the text of an editable list, once, whenever Enter is pressed in it or an
/// entry is chosen. Text that is only typed, or left behind by moving on, applies nothing. The list
/// no longer completes what is typed: each text stands for itself.
void onEntered(QComboBox &list, const std::function<void(const QString &)> &apply);
