#include "engine/source/CheckMode.h"

#include "engine/CodePage.h"
#include "engine/LoadMode.h"
#include "engine/source/RuleFaults.h"
#include "engine/source/TengwarSigns.h"

#include <algorithm>

namespace {

std::vector<ModeRecord> rulesOf(const QByteArray &bytes)
{
    std::vector<ModeRecord> rules;
    for (qsizetype at = RuleRecordLength; at < bytes.size(); at += RuleRecordLength) {
        const int place = static_cast<int>(at / RuleRecordLength) + 1;
        if (const std::optional<ModeRule> rule = ruleOfRecord(bytes.mid(at, RuleRecordLength)))
            rules.push_back({place, *rule});
    }
    return rules;
}

const ModeRule &rule(const ModeRecord &record)
{
    return std::get<ModeRule>(record.content);
}

/// A doubled sign is typed as the wide code and then the stemmed one, on any letter.
bool isDoubled(const Mark &mark, const QByteArray &codes, qsizetype at)
{
    const auto is = [&](qsizetype position, MarkPlace place) {
        return position >= 0 && position < codes.size() &&
               static_cast<uchar>(codes.at(position)) == mark.codes[static_cast<size_t>(place)];
    };
    return mark.kind == MarkKind::Above &&
           ((is(at, MarkPlace::Wide) && is(at + 1, MarkPlace::Stem)) ||
            (is(at - 1, MarkPlace::Wide) && is(at, MarkPlace::Stem)));
}

/// Walks the codes of a rule and judges each mark by the letter in front of it.
class MarkJudge
{
public:
    explicit MarkJudge(const QByteArray &codes) : codes_(codes) {}

    /// The first fault in the rule's text if the last letter before it was \a letter (0: unknown).
    QString fault(uchar letter) const
    {
        for (qsizetype at = 0; at < codes_.size(); ++at) {
            const auto code = static_cast<uchar>(codes_.at(at));
            const Mark *mark = markOfCode(code);
            if (mark == nullptr) {
                letter = code;
                continue;
            }
            const std::optional<LetterForm> form = formOf(letter);
            if (!form || isDoubled(*mark, codes_, at))
                continue;
            if (const uchar right = markCode(*mark, *form); preferredCode(code) != right)
                return QStringLiteral("%1 on %2 is %3, not %4")
                    .arg(QString::fromLatin1(mark->name.data(), qsizetype(mark->name.size())),
                         quotedSourceText(QByteArray(1, char(letter))),
                         quotedSourceText(QByteArray(1, char(right))),
                         quotedSourceText(QByteArray(1, char(code))));
        }
        return {};
    }

    /// The last letter of the text, or 0.
    uchar lastLetter() const
    {
        const auto last = std::find_if(codes_.rbegin(), codes_.rend(), [](char code) {
            return markOfCode(static_cast<uchar>(code)) == nullptr;
        });
        return last == codes_.rend() ? 0 : static_cast<uchar>(*last);
    }

private:
    const QByteArray &codes_;
};

/// The letters that the previous step can have ended with where this rule fires; only a tag tells.
QByteArray lettersBefore(const ModeRule &judged, const std::vector<ModeRecord> &rules)
{
    QByteArray letters;
    if (judged.PrecedingCondition.isEmpty())
        return letters;
    for (const ModeRecord &record : rules) {
        if (rule(record).LeavesTag == judged.PrecedingCondition)
            letters += static_cast<char>(MarkJudge(rule(record).TengwarText).lastLetter());
    }
    return letters;
}

QList<SourceProblem> findMisplacedMarks(const std::vector<ModeRecord> &rules)
{
    QList<SourceProblem> faults;
    for (const ModeRecord &record : rules) {
        const QByteArray &codes = rule(record).TengwarText;
        const bool beginsWithMark =
            !codes.isEmpty() && markOfCode(static_cast<uchar>(codes.front())) != nullptr;
        QByteArray letters = beginsWithMark ? lettersBefore(rule(record), rules) : QByteArray();
        if (letters.isEmpty())
            letters.append('\0');
        for (const char letter : std::as_const(letters)) {
            const QString fault = MarkJudge(codes).fault(static_cast<uchar>(letter));
            if (fault.isEmpty())
                continue;
            faults.append(
                {record.place, QStringLiteral("the rule for %1: %2")
                                   .arg(quotedSourceText(rule(record).RomanText), fault)});
            break;
        }
    }
    return faults;
}

/// The characters that a rule matches whatever stands around them.
QByteArray coveredCharacters(const std::vector<ModeRecord> &rules)
{
    QByteArray covered;
    for (const ModeRecord &record : rules) {
        const ModeRule &candidate = rule(record);
        if (candidate.RomanText.size() == 1 && candidate.FollowingCondition.isEmpty() &&
            candidate.PrecedingCondition.isEmpty())
            covered += candidate.RomanText;
    }
    return covered;
}

} // namespace

ModeReport checkMode(const QByteArray &bytes)
{
    constexpr int wholeMode = 0;
    constexpr int headerRecord = 1;
    constexpr int firstPrintable = 32;
    constexpr int codeCount = 256;
    const int caseMode =
        headerCaseMode(bytes.first(qMin<qsizetype>(bytes.size(), RuleRecordLength)));
    const std::vector<ModeRecord> rules = rulesOf(bytes);
    ModeReport report{findRuleFaults(rules, caseMode, QStringLiteral("record")) +
                          findMisplacedMarks(rules),
                      static_cast<qsizetype>(rules.size()),
                      {}};
    if (caseMode != 0 && caseMode != 1)
        report.faults.append(
            {headerRecord, QStringLiteral("case mode %1 makes every text empty").arg(caseMode)});
    if (report.ruleCount > ModeTable::maximumRules)
        report.faults.append(
            {wholeMode, QStringLiteral("no text can be transcribed with more than %1 rules")
                            .arg(ModeTable::maximumRules)});
    const QByteArray covered = coveredCharacters(rules);
    for (int code = firstPrintable; code < codeCount; ++code) {
        const QChar character(codePageCharacter(static_cast<uchar>(code)));
        const bool isMatched = caseMode != 0 || character.toLower() == character;
        if (covered.contains(static_cast<char>(code)) || !isMatched)
            continue;
        if (code < 128 && character.isLetter())
            report.faults.append(
                {wholeMode, QStringLiteral("the letter %1 has no rule of its own").arg(character)});
        else if (character.isPrint())
            report.undefined += static_cast<char>(code);
    }
    std::ranges::stable_sort(report.faults, {}, &SourceProblem::line);
    return report;
}
