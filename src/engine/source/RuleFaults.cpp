#include "engine/source/RuleFaults.h"

#include "engine/CodePage.h"
#include "engine/CodedText.h"
#include "engine/FoldCase.h"
#include "engine/ModeTable.h"

#include <QHash>
#include <QSet>

namespace {

constexpr uchar firstNonControl = 32;
constexpr uchar firstNonBoundaryBefore = 33;
constexpr uchar firstNonBoundaryAfter = 48;

uchar firstCode(const QByteArray &text)
{
    return static_cast<uchar>(text.front());
}

bool isBoundary(const QByteArray &condition)
{
    return condition.startsWith(wordBoundaryMark.toLatin1());
}

/// Whether the wide condition holds whenever the narrow one does.
bool covers(const QByteArray &wide, const QByteArray &narrow, uchar firstNonBoundary)
{
    if (wide.isEmpty() || wide == narrow)
        return true;
    return isBoundary(wide) && !narrow.isEmpty() &&
           (isBoundary(narrow) || firstCode(narrow) < firstNonBoundary);
}

QString shown(const QByteArray &text)
{
    return quotedSourceText(text);
}

class FaultFinder
{
public:
    FaultFinder(const std::vector<ModeRecord> &records, int caseMode, const QString &placeName)
        : records_(records), folding_(static_cast<qint16>(caseMode), QLocale::c()),
          placeName_(placeName)
    {
    }

    QList<SourceProblem> find()
    {
        for (const ModeRecord &record : records_) {
            if (const std::optional<ModeRule> rule = ruleOf(record))
                tags_.insert(rule->LeavesTag);
        }
        for (const ModeRecord &record : records_) {
            const std::optional<ModeRule> rule = ruleOf(record);
            if (!rule)
                continue;
            if (std::holds_alternative<ModeRule>(record.content))
                judge(*rule, record.place);
            earlier_[rule->RomanText].append({record.place, *rule});
        }
        return problems_;
    }

private:
    struct PlacedRule
    {
        int place;
        ModeRule rule;
    };

    void judge(const ModeRule &rule, int place)
    {
        QString fault = faultOfShape(rule);
        if (fault.isEmpty())
            fault = faultOfContext(rule);
        if (fault.isEmpty())
            fault = faultByOrder(rule);
        if (!fault.isEmpty())
            problems_.append({place, fault});
    }

    QString faultOfShape(const ModeRule &rule) const;
    QString faultOfContext(const ModeRule &rule) const;
    QString faultByOrder(const ModeRule &rule) const;
    bool isFolded(const QByteArray &text) const
    {
        const QString characters = fromCodePage(text);
        return !folding_.keepsText() || folding_.fold(characters) == characters;
    }

    const std::vector<ModeRecord> &records_;
    CaseFolding folding_;
    QString placeName_;
    QSet<QByteArray> tags_;
    QHash<QByteArray, QList<PlacedRule>> earlier_;
    QList<SourceProblem> problems_;
};

QString FaultFinder::faultOfShape(const ModeRule &rule) const
{
    constexpr uchar lastSkipped = 9;
    if (rule.RomanText.isEmpty() || firstCode(rule.RomanText) <= lastSkipped)
        return QStringLiteral("a record that begins with %1 is no rule")
            .arg(rule.RomanText.isEmpty() ? QStringLiteral("nothing") : shown(rule.RomanText));
    for (const QByteArray &field : {rule.RomanText, rule.TengwarText, rule.FollowingCondition,
                                    rule.PrecedingCondition, rule.LeavesTag}) {
        if (field.contains('\t'))
            return QStringLiteral("a TAB would end the text %1").arg(shown(field));
    }
    if (textLength(rule) > maximumTextLengthOfRule)
        return QStringLiteral("the texts of the rule for %1 have %2 characters; a record holds %3")
            .arg(shown(rule.RomanText))
            .arg(textLength(rule))
            .arg(maximumTextLengthOfRule);
    return {};
}

QString FaultFinder::faultOfContext(const ModeRule &rule) const
{
    const QString never =
        QStringLiteral("the rule for %1 can never fire: ").arg(shown(rule.RomanText));
    if (rule.RomanText.size() > maximumWindow)
        return never + QStringLiteral("it has %1 characters, and at most %2 are compared")
                           .arg(rule.RomanText.size())
                           .arg(maximumWindow);
    if (rule.RomanText.size() == 1 && firstCode(rule.RomanText) < firstNonControl)
        return never + QStringLiteral("a lone control character passes unchanged");
    if (!isFolded(rule.RomanText))
        return never + QStringLiteral("the text is folded to lower case first");
    if (rule.FollowingCondition.size() > 1 && !isBoundary(rule.FollowingCondition))
        return never + QStringLiteral("only one following character is looked at");
    if (!isFolded(rule.FollowingCondition))
        return never + QStringLiteral("the following character is folded to lower case first");
    const bool waitsForTag =
        !rule.PrecedingCondition.isEmpty() && !isBoundary(rule.PrecedingCondition);
    const bool isPassedOn =
        rule.PrecedingCondition.size() == 1 && firstCode(rule.PrecedingCondition) < firstNonControl;
    if (waitsForTag && !isPassedOn && !tags_.contains(rule.PrecedingCondition))
        return never +
               QStringLiteral("no rule leaves the tag %1").arg(shown(rule.PrecedingCondition));
    return {};
}

QString FaultFinder::faultByOrder(const ModeRule &rule) const
{
    const QList<PlacedRule> candidates = earlier_.value(rule.RomanText);
    for (const PlacedRule &candidate : candidates) {
        const ModeRule &other = candidate.rule;
        if (other.PrecedingCondition == rule.PrecedingCondition &&
            other.FollowingCondition == rule.FollowingCondition)
            return QStringLiteral("the rule for %1 repeats that of %2 %3")
                .arg(shown(rule.RomanText), placeName_)
                .arg(candidate.place);
        if (covers(other.PrecedingCondition, rule.PrecedingCondition, firstNonBoundaryBefore) &&
            covers(other.FollowingCondition, rule.FollowingCondition, firstNonBoundaryAfter))
            return QStringLiteral("the rule for %1 can never fire: that of %2 %3 comes first")
                .arg(shown(rule.RomanText), placeName_)
                .arg(candidate.place);
    }
    return {};
}

} // namespace

QList<SourceProblem> findRuleFaults(const std::vector<ModeRecord> &records, int caseMode,
                                    const QString &placeName)
{
    return FaultFinder(records, caseMode, placeName).find();
}
