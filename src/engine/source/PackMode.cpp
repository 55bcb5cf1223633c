#include "engine/source/PackMode.h"

#include "engine/LoadMode.h"
#include "engine/source/ParseModeSource.h"
#include "engine/source/RuleFaults.h"

#include <algorithm>

namespace {

QList<SourceProblem> findShortRecords(const std::vector<ModeRecord> &records)
{
    QList<SourceProblem> problems;
    for (size_t i = 0; i + 1 < records.size(); ++i) {
        const auto *bytes = std::get_if<QByteArray>(&records[i].content);
        if (bytes != nullptr && bytes->size() < RuleRecordLength)
            problems.append({records[i].place,
                             QStringLiteral("only the last record may be shorter than %1 bytes")
                                 .arg(RuleRecordLength)});
    }
    return problems;
}

QList<SourceProblem> findRulesTooMany(const std::vector<ModeRecord> &records)
{
    qsizetype rules = 0;
    for (const ModeRecord &record : records) {
        if (ruleOf(record) && ++rules > ModeTable::maximumRules)
            return {{record.place,
                     QStringLiteral("a mode holds at most %1 rules").arg(ModeTable::maximumRules)}};
    }
    return {};
}

QByteArray bytesOf(const ModeRecord &record, char padding)
{
    const auto *rule = std::get_if<ModeRule>(&record.content);
    return rule != nullptr ? recordOfRule(*rule, padding) : std::get<QByteArray>(record.content);
}

} // namespace

PackedMode packMode(const QString &source)
{
    PackedMode packed;
    ParsedModeSource parsed = parseModeSource(source);
    packed.problems = std::move(parsed.problems);
    if (!packed.problems.isEmpty())
        return packed;
    const QByteArray header = parsed.source.header.value_or(QByteArray());
    ExpandedRules expanded = expandRules(parsed.source);
    packed.records = std::move(expanded.records);
    packed.problems = std::move(expanded.problems);
    if (!packed.problems.isEmpty())
        return packed;
    packed.problems =
        findShortRecords(packed.records) + findRulesTooMany(packed.records) +
        findRuleFaults(packed.records, headerCaseMode(header), QStringLiteral("line"));
    std::ranges::stable_sort(packed.problems, {}, &SourceProblem::line);
    if (!packed.problems.isEmpty())
        return packed;
    packed.bytes = header;
    for (const ModeRecord &record : packed.records)
        packed.bytes += bytesOf(record, parsed.source.padding);
    return packed;
}
