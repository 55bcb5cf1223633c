#include "engine/source/ModeRecord.h"

namespace {

constexpr char fieldEnd = '\t';

} // namespace

qsizetype textLength(const ModeRule &rule)
{
    return rule.RomanText.size() + rule.TengwarText.size() + rule.FollowingCondition.size() +
           rule.PrecedingCondition.size() + rule.LeavesTag.size();
}

QByteArray recordOfRule(const ModeRule &rule, char padding)
{
    QByteArray record;
    for (const QByteArray &field : {rule.RomanText, rule.TengwarText, rule.FollowingCondition,
                                    rule.PrecedingCondition, rule.LeavesTag})
        record += field + fieldEnd;
    return record.leftJustified(RuleRecordLength, padding);
}

std::optional<ModeRule> ruleOfRecord(const QByteArray &record)
{
    const bool isSkipped = record.isEmpty() || static_cast<uchar>(record.front()) <= fieldEnd;
    const QByteArrayList fields = record.split(fieldEnd);
    if (isSkipped || record.size() < RuleRecordLength || fields.size() <= fieldsOfRule)
        return std::nullopt;
    return ModeRule{fields[0], fields[1], fields[2], fields[3], fields[4]};
}

std::optional<ModeRule> ruleOf(const ModeRecord &record)
{
    if (const auto *rule = std::get_if<ModeRule>(&record.content))
        return *rule;
    return ruleOfRecord(std::get<QByteArray>(record.content));
}

int headerCaseMode(const QByteArray &header)
{
    const qsizetype tab = header.indexOf(fieldEnd);
    return tab < 0 ? 0 : header.mid(tab + 1, 2).trimmed().toInt();
}
