#pragma once

#include "engine/source/SourceTokens.h"
#include "engine/source/TengwarSigns.h"

#include <QHash>

#include <optional>
#include <variant>
#include <vector>

/// The parts of a mode source as they were written, before the rules are generated.

/// The most records that a source may have, and the most entries of a table: far beyond what a
/// mode can use, so that a slip in a source ends in words and not in want of memory.
inline constexpr size_t maximumRecords = 100'000;

/// Stands for the signs of the entry that the table of that name is at.
struct GroupReference
{
    QByteArray table;

    bool operator==(const GroupReference &) const = default;
};

/// One part of what a rule writes: a sign by its name, codes as they stand, or a table's signs.
using SignItem = std::variant<const Letter *, const Mark *, QByteArray, GroupReference>;
using SignList = std::vector<SignItem>;

struct TableEntry
{
    QByteArray key;
    SignList signs;
};

/// A named list of roman texts and the signs that belong to them.
using SourceTable = std::vector<TableEntry>;

/// One part of the roman text that a rule matches: a text, or a table's keys one after the other.
using PatternItem = std::variant<QByteArray, GroupReference>;

/// What of the last letter a tag tells to the next step: where marks above go, or where marks below
/// and hooks go.
enum class FormKind { Head, Foot };

/// A tag made from the form of the last letter, with a text added to tell apart what must be.
struct FormTag
{
    FormKind kind;
    QByteArray suffix;
};

struct Boundary
{
};

/// One alternative of a condition; a text is a tag (after) or a character (before).
using SourceCondition = std::variant<Boundary, QByteArray, GroupReference, FormTag>;

/// A line that generates rules.
struct RuleLine
{
    int line = 0;
    std::vector<PatternItem> pattern;
    std::vector<SourceCondition> after;  ///< alternatives; none: no condition
    std::vector<SourceCondition> before; ///< alternatives; none: no condition
    SignList signs;
    std::variant<QByteArray, FormTag> leaving;
};

/// Records that are written as they stand.
struct RawRecord
{
    int line = 0;
    QByteArray bytes;
};

struct ModeSource
{
    std::optional<QByteArray> header; ///< the whole first record; always there in a sound source
    std::vector<std::variant<RuleLine, RawRecord>> statements;
    QHash<QByteArray, SourceTable> tables;
    char padding = ' '; ///< fills each record behind its fields
};
