#pragma once

#include "engine/ModeTable.h"

#include <QSet>
#include <QString>

/// The transcription written as plainly as it can be told: every window from the widest, every rule
/// in file order, whole strings compared. It is slow and it is what the fast walk is held against.
struct LiteralWalk
{
    const ModeTable &table;
    QString undefinedText;

    QString output = {};
    bool hadUndefined = false;
    int steps = 0;
    QSet<qsizetype> firedRules = {}; ///< by index in the table

    void run(const QString &text);
};
