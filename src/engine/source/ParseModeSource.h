#pragma once

#include "engine/source/ModeSource.h"

struct ParsedModeSource
{
    ModeSource source;
    QList<SourceProblem> problems; ///< in the order of the lines; none: the source is sound
};

/// Reads a mode source; the grammar stands at the top of the implementation.
[[nodiscard]] ParsedModeSource parseModeSource(const QString &text);
