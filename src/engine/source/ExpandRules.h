#pragma once

#include "engine/source/ModeRecord.h"
#include "engine/source/ModeSource.h"

struct ExpandedRules
{
    std::vector<ModeRecord> records;
    QList<SourceProblem> problems;
};

/// Generates the rules of a source: one for each choice of entries and of alternatives, the last
/// one named changing fastest. A tag made from a form is replaced by the text for that form; a
/// condition on forms becomes one rule for each form that some rule of the source leaves.
[[nodiscard]] ExpandedRules expandRules(const ModeSource &source);
