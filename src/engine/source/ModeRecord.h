#pragma once

#include "engine/LoadMode.h"

#include <QByteArray>

#include <optional>
#include <variant>

/// One rule as a record holds it, in code page 1252.
struct ModeRule
{
    QByteArray RomanText;
    QByteArray TengwarText;
    QByteArray FollowingCondition;
    QByteArray PrecedingCondition;
    QByteArray LeavesTag;

    bool operator==(const ModeRule &) const = default;
};

/// A record of a mode and where it comes from.
struct ModeRecord
{
    int place = 0; ///< the line of the source, or the number of the record in its file
    std::variant<ModeRule, QByteArray> content; ///< a rule, or bytes as they stand
};

/// The length of the five texts of a rule together, in bytes.
[[nodiscard]] qsizetype textLength(const ModeRule &rule);

/// The texts of a rule, each of which a TAB ends.
inline constexpr qsizetype fieldsOfRule = 5;

/// The most bytes that the five texts of a rule may have together: a record holds their TABs too.
inline constexpr qsizetype maximumTextLengthOfRule = RuleRecordLength - fieldsOfRule;

/// The bytes of a rule's record; its texts must fit.
[[nodiscard]] QByteArray recordOfRule(const ModeRule &rule, char padding);

/// The rule in a record; none for a record that is skipped or has too few TABs.
[[nodiscard]] std::optional<ModeRule> ruleOfRecord(const QByteArray &record);

/// The rule that a record counts as, whichever way it was written.
[[nodiscard]] std::optional<ModeRule> ruleOf(const ModeRecord &record);

/// The `CaseMode` in a header record; 0 if there is none to read.
[[nodiscard]] int headerCaseMode(const QByteArray &header);
