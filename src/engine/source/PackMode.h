#pragma once

#include "engine/source/ExpandRules.h"

struct PackedMode
{
    QByteArray bytes;                ///< the mode file; empty if there are problems
    std::vector<ModeRecord> records; ///< what the file holds behind its header, with source lines
    QList<SourceProblem> problems;
};

/// Makes a mode file of a mode source: the header and one record for each generated rule, padded
/// with blanks unless the source says otherwise. Refuses rules that findRuleFaults() finds.
[[nodiscard]] PackedMode packMode(const QString &source);
