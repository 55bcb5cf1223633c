#pragma once

#include "engine/source/SourceTokens.h"

struct ModeReport
{
    /// Each with the number of its record (the header is 1), or 0 where it is about the whole mode.
    QList<SourceProblem> faults;
    qsizetype ruleCount = 0; ///< records that are rules
    QByteArray undefined;    ///< printable characters of the code page that no rule covers
};

/// Judges a mode file: rules that can never fire, marks in the wrong position for their letter, and
/// letters of the alphabet without a rule. A letter counts as covered if a rule matches it alone,
/// whatever its neighbours are.
[[nodiscard]] ModeReport checkMode(const QByteArray &bytes);
