#pragma once

#include "engine/CodedText.h"
#include "engine/ModeTable.h"

#include <array>
#include <vector>

/// What one step of the walk did.
struct Step
{
    enum class Kind { ControlCharacter, Rule, Undefined };

    Kind kind;
    int rule;   ///< index into the table, for `Kind::Rule`
    int length; ///< characters (UTF-16 units) consumed, 1 to 16
};

/// Whether a control character that ends the text may be matched by a rule, or only be passed on.
enum class LoneControl { PassedOn, Offered };

/// The rules of a mode, resolved for matching: the whole table in file order, each field a column.
///
/// A step compares the first characters of 64 rules at once and looks at the few candidates in
/// full. Nothing is sorted or indexed, so the order of the file decides by itself: the widest match
/// wins and, at one width, the earliest rule.
class RuleColumns
{
public:
    /// The tag that the previous step left, as a number. A walk starts with `noTag`.
    using TagId = int;
    static constexpr TagId noTag = 0;

    /// Throws `RuntimeError` (`Overflow`) for more than `ModeTable::maximumRules` rules.
    explicit RuleColumns(const ModeTable &table);

    /// One step at a position before the end of the text. `lastTag` is what the previous step left
    /// and becomes what this one leaves.
    [[nodiscard]] Step step(const CodedText &text, qsizetype position, LoneControl loneControl,
                            TagId &lastTag) const;

private:
    struct Key
    {
        std::array<uint8_t, maximumWindow> bytes{};
    };
    struct Conditions
    {
        int following;   ///< a code, or one of the marks in RuleColumns.cpp
        TagId preceding; ///< a tag, or one of the marks in RuleColumns.cpp
    };
    struct Match
    {
        int rule = -1;
        int length = 0;
    };

    void addRule(const QString &romanText, Conditions conditions, TagId leavesTag);
    void padToBlocks();
    [[nodiscard]] Match widestMatch(const CodedText &text, qsizetype position, int narrowest,
                                    TagId lastTag) const;
    [[nodiscard]] bool conditionsHold(size_t rule, int next, TagId lastTag) const;

    std::vector<uint8_t> firstByte_;  ///< padded to whole blocks
    std::vector<uint8_t> secondByte_; ///< likewise
    std::vector<uint64_t> isSingle_;  ///< by block, a bit for each rule of one character
    std::vector<uint8_t> length_;     ///< characters; 0 for a rule that can match nothing
    std::vector<Key> key_;
    std::vector<Conditions> conditions_;
    std::vector<TagId> leavesTag_;
    std::vector<bool> endsWord_; ///< by tag: whether a word can begin after it
};
