#include "engine/source/UnpackMode.h"

#include "engine/LoadMode.h"
#include "engine/source/ParseModeSource.h"
#include "engine/source/RuleFaults.h"

#include <algorithm>

namespace {

std::vector<QByteArray> cutRecords(const QByteArray &bytes)
{
    std::vector<QByteArray> records;
    for (qsizetype at = 0; at < bytes.size(); at += RuleRecordLength)
        records.push_back(bytes.mid(at, RuleRecordLength));
    return records;
}

/// The padding that reproduces most of the rules.
char commonPadding(const std::vector<QByteArray> &records)
{
    const auto ended = [&records](char padding) {
        return std::ranges::count_if(records, [padding](const QByteArray &record) {
            return ruleOfRecord(record) && record.endsWith(padding);
        });
    };
    return ended('\0') > ended(' ') ? '\0' : ' ';
}

QString headerText(const QByteArray &header)
{
    const qsizetype tab = header.indexOf('\t');
    const QByteArray number = tab < 0 ? QByteArray() : header.mid(tab + 1, 2).trimmed();
    QString lines = QStringLiteral("mode %1\ncase %2\n")
                        .arg(quotedSourceText(header.first(qMax<qsizetype>(tab, 0))),
                             QString::fromLatin1(number));
    const ParsedModeSource parsed = parseModeSource(lines);
    if (parsed.problems.isEmpty() && parsed.source.header == header)
        return lines;
    return QStringLiteral("header %1\n").arg(quotedSourceText(header));
}

QString ruleText(const ModeRule &rule)
{
    const QByteArray boundary("\r");
    QString text = quotedSourceText(rule.RomanText);
    if (!rule.PrecedingCondition.isEmpty())
        text += QStringLiteral(" after ") + (rule.PrecedingCondition == boundary
                                                 ? QStringLiteral("start")
                                                 : quotedSourceText(rule.PrecedingCondition));
    if (!rule.FollowingCondition.isEmpty())
        text += QStringLiteral(" before ") + (rule.FollowingCondition == boundary
                                                  ? QStringLiteral("end")
                                                  : quotedSourceText(rule.FollowingCondition));
    text += QStringLiteral(" -> ") + quotedSourceText(rule.TengwarText);
    if (!rule.LeavesTag.isEmpty())
        text += QStringLiteral(" leaving ") + quotedSourceText(rule.LeavesTag);
    return text + u'\n';
}

/// The records, as rules where a rule line reproduces them.
std::vector<ModeRecord> readRecords(const std::vector<QByteArray> &records, char padding)
{
    std::vector<ModeRecord> read;
    for (const QByteArray &record : records) {
        const std::optional<ModeRule> rule = ruleOfRecord(record);
        const int place = static_cast<int>(read.size());
        if (rule && recordOfRule(*rule, padding) == record)
            read.push_back({place, *rule});
        else
            read.push_back({place, record});
    }
    return read;
}

QString recordsText(const std::vector<ModeRecord> &records)
{
    QString text;
    int unused = 0;
    const auto endUnused = [&text, &unused] {
        if (unused > 0)
            text += QStringLiteral("unused %1\n").arg(unused);
        unused = 0;
    };
    for (const ModeRecord &record : records) {
        const auto *bytes = std::get_if<QByteArray>(&record.content);
        if (bytes != nullptr && *bytes == QByteArray(RuleRecordLength, '\0')) {
            ++unused;
            continue;
        }
        endUnused();
        text += bytes != nullptr ? QStringLiteral("raw %1\n").arg(quotedSourceText(*bytes))
                                 : ruleText(std::get<ModeRule>(record.content));
    }
    endUnused();
    return text;
}

} // namespace

QString unpackMode(const QByteArray &bytes)
{
    std::vector<QByteArray> records = cutRecords(bytes);
    const QByteArray header = records.empty() ? QByteArray() : records.front();
    if (!records.empty())
        records.erase(records.begin());
    const char padding = commonPadding(records);
    std::vector<ModeRecord> read = readRecords(records, padding);
    QString text = headerText(header);
    if (padding == '\0')
        text += QStringLiteral("padding zeros\n");
    const int caseMode = headerCaseMode(header);
    const QList<SourceProblem> faults = findRuleFaults(read, caseMode, QString());
    for (const SourceProblem &fault : faults)
        read[static_cast<size_t>(fault.line)].content = records[static_cast<size_t>(fault.line)];
    return text + u'\n' + recordsText(read);
}
