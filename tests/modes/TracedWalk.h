#pragma once

#include "engine/ModeTable.h"

#include <QSet>

/// Transcribes a text the plain way, rule by rule, and notes which rules fired.
[[nodiscard]] QString tracedWalk(const QString &text, const ModeTable &table, QSet<int> &fired);
