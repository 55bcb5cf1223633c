#pragma once

#include "engine/source/ModeRecord.h"
#include "engine/source/SourceTokens.h"

#include <vector>

/// Finds the rules that a mode would be wrong to hold: those that do not fit a record, that repeat
/// an earlier rule, and that can never fire. A rule can never fire if an earlier one matches the
/// same text whenever it does, if no text or neighbour can ever be what it asks for, or if no rule
/// leaves the tag that it waits for. Rules given as bytes are not judged, but count as earlier
/// rules. \a placeName says what the records' places are: "line" or "record".
[[nodiscard]] QList<SourceProblem> findRuleFaults(const std::vector<ModeRecord> &records,
                                                  int caseMode, const QString &placeName);
