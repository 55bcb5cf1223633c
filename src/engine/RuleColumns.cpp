#include "engine/RuleColumns.h"

#include "engine/ByteBlock.h"
#include "engine/CodePage.h"
#include "engine/RuntimeError.h"

#include <QHash>
#include <bit>

static_assert(prefixLength == maximumWindow);

namespace {

constexpr int firstPrintableCode = 32;
// A word ends before any of these codes, but begins only after a space or a control character: the
// two bounds differ on purpose, so that punctuation ends a word without starting the next one.
constexpr int firstCodeInsideWord = 48;
constexpr int firstCodeAfterBlank = 33;

// Conditions on what follows that are no code.
constexpr int followsAnything = -1;
constexpr int followsWordEnd = -2;
constexpr int followsNothing = -3;

// Conditions on the previous tag that are no tag.
constexpr RuleColumns::TagId afterAnything = -1;
constexpr RuleColumns::TagId afterWordBreak = -2;

constexpr RuleColumns::TagId tagOfControl(int code)
{
    return 1 + code;
}

int followingMark(const QString &condition)
{
    if (condition.isEmpty())
        return followsAnything;
    if (condition.startsWith(wordBoundaryMark))
        return followsWordEnd;
    if (condition.size() > 1)
        return followsNothing;
    const auto byte = codePageByte(condition.front().unicode());
    return byte ? int{*byte} : followsNothing;
}

/// Numbers for tags, so that a walk compares numbers and not texts.
class TagNumbers
{
public:
    TagNumbers()
    {
        number(QString());
        for (int code = 0; code < firstPrintableCode; ++code)
            number(QString(QChar(code)));
    }

    RuleColumns::TagId number(const QString &tag)
    {
        const auto known = numbers_.constFind(tag);
        if (known != numbers_.constEnd())
            return *known;
        const auto next = static_cast<RuleColumns::TagId>(numbers_.size());
        numbers_.insert(tag, next);
        endsWord_.push_back(tag.isEmpty() || tag.front().unicode() < firstCodeAfterBlank);
        return next;
    }

    RuleColumns::TagId precedingMark(const QString &condition)
    {
        if (condition.isEmpty())
            return afterAnything;
        return condition.startsWith(wordBoundaryMark) ? afterWordBreak : number(condition);
    }

    [[nodiscard]] std::vector<bool> endsWord() && { return std::move(endsWord_); }

private:
    QHash<QString, RuleColumns::TagId> numbers_;
    std::vector<bool> endsWord_;
};

bool isControl(int code)
{
    return code >= 0 && code < firstPrintableCode;
}

} // namespace

RuleColumns::RuleColumns(const ModeTable &table)
{
    if (table.ruleCount() > ModeTable::maximumRules)
        throw RuntimeError(ErrorNumber::Overflow);
    TagNumbers tags;
    for (qsizetype i = 0; i < table.ruleCount(); ++i) {
        const Conditions conditions = {followingMark(table.FollowingCondition[i]),
                                       tags.precedingMark(table.PrecedingCondition[i])};
        addRule(table.RomanText[i], conditions, tags.number(table.LeavesTag[i]));
    }
    endsWord_ = std::move(tags).endsWord();
    padToBlocks();
}

void RuleColumns::addRule(const QString &romanText, Conditions conditions, TagId leavesTag)
{
    Key key;
    const auto bytes = toCodePage(romanText);
    const bool canMatch = bytes && !bytes->isEmpty() && bytes->size() <= maximumWindow &&
                          !bytes->contains(CodedText::unmatchable);
    if (canMatch)
        std::ranges::copy(*bytes, key.bytes.begin());
    firstByte_.push_back(canMatch ? key.bytes[0] : CodedText::unmatchable);
    secondByte_.push_back(key.bytes[1]);
    length_.push_back(static_cast<uint8_t>(canMatch ? bytes->size() : 0));
    key_.push_back(key);
    conditions_.push_back(conditions);
    leavesTag_.push_back(leavesTag);
}

void RuleColumns::padToBlocks()
{
    const size_t blocks = (length_.size() + byteBlockLength - 1) / byteBlockLength;
    firstByte_.resize(blocks * byteBlockLength, CodedText::unmatchable);
    secondByte_.resize(firstByte_.size(), 0);
    length_.resize(firstByte_.size(), 0);
    for (size_t block = 0; block < blocks; ++block)
        isSingle_.push_back(equalBytes(length_.data() + block * byteBlockLength, 1));
}

Step RuleColumns::step(const CodedText &text, qsizetype position, LoneControl loneControl,
                       TagId &lastTag) const
{
    const int code = text.codeAt(position);
    const bool isLast = position + 1 == text.size();
    const bool passesOn = isControl(code) && !(isLast && loneControl == LoneControl::Offered);
    const Match match = widestMatch(text, position, passesOn ? 2 : 1, lastTag);
    if (match.rule >= 0) {
        lastTag = leavesTag_[static_cast<size_t>(match.rule)];
        return {Step::Kind::Rule, match.rule, match.length};
    }
    if (isControl(code)) {
        lastTag = tagOfControl(code);
        return {Step::Kind::ControlCharacter, -1, 1};
    }
    lastTag = noTag;
    return {Step::Kind::Undefined, -1, text.characterLength(position)};
}

RuleColumns::Match RuleColumns::widestMatch(const CodedText &text, qsizetype position,
                                            int narrowest, TagId lastTag) const
{
    const uint8_t *window = text.window(position);
    const qsizetype remaining = text.size() - position;
    Match best{-1, narrowest - 1};
    for (size_t block = 0; block < firstByte_.size(); block += byteBlockLength) {
        uint64_t candidates = equalBytes(firstByte_.data() + block, window[0]);
        if (candidates == 0)
            continue;
        candidates &=
            equalBytes(secondByte_.data() + block, window[1]) | isSingle_[block / byteBlockLength];
        for (; candidates != 0; candidates &= candidates - 1) {
            const size_t rule = block + static_cast<size_t>(std::countr_zero(candidates));
            const int length = length_[rule];
            if (length <= best.length || length > remaining ||
                !equalPrefix(window, key_[rule].bytes.data(), length))
                continue;
            if (conditionsHold(rule, text.codeAt(position + length), lastTag))
                best = {static_cast<int>(rule), length};
        }
    }
    return best;
}

bool RuleColumns::conditionsHold(size_t rule, int next, TagId lastTag) const
{
    const auto [following, preceding] = conditions_[rule];
    const bool precedingHolds =
        preceding == afterAnything || preceding == lastTag ||
        (preceding == afterWordBreak && endsWord_[static_cast<size_t>(lastTag)]);
    if (!precedingHolds)
        return false;
    const bool nextEndsWord = next == CodedText::end || (next >= 0 && next < firstCodeInsideWord);
    return following == followsAnything || (following >= 0 && following == next) ||
           (following == followsWordEnd && nextEndsWord);
}
