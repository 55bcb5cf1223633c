#include "modes/TracedWalk.h"

#include "engine/CodePage.h"
#include "engine/FoldCase.h"

namespace {

int codeOf(const QString &text)
{
    return text.isEmpty() ? -1 : codePageByte(text.front().unicode()).value_or(uchar(255));
}

bool isPrecededBy(const QString &condition, const QString &lastTag)
{
    return condition.isEmpty() || condition == lastTag ||
           (condition.startsWith(wordBoundaryMark) && codeOf(lastTag) < 33);
}

bool isFollowedBy(const QString &condition, const QString &next)
{
    return condition.isEmpty() || condition == next ||
           (condition.startsWith(wordBoundaryMark) && codeOf(next) < 48);
}

/// The first rule that matches the window in its context, or -1.
int firstMatch(const ModeTable &table, const QString &window, const QString &next,
               const QString &lastTag)
{
    for (int i = 0; i < table.ruleCount(); ++i) {
        if (table.RomanText.at(i) == window &&
            isPrecededBy(table.PrecedingCondition.at(i), lastTag) &&
            isFollowedBy(table.FollowingCondition.at(i), next))
            return i;
    }
    return -1;
}

} // namespace

QString tracedWalk(const QString &text, const ModeTable &table, QSet<int> &fired)
{
    constexpr int widestWindow = 16;
    const QString folded = FoldCase(text, table.CaseMode);
    QString output;
    QString lastTag;
    for (qsizetype at = 0; at < folded.size();) {
        int rule = -1;
        qsizetype width = qMin<qsizetype>(widestWindow, folded.size());
        for (; width > 0 && rule < 0; --width)
            rule = firstMatch(table, folded.mid(at, width), folded.mid(at + width, 1), lastTag);
        if (rule >= 0)
            fired.insert(rule);
        output += table.TengwarText.value(rule);
        lastTag = table.LeavesTag.value(rule);
        at += width + 1;
    }
    return output;
}
