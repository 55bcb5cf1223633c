#include "engine/ModeTable.h"

void ModeTable::clear()
{
    ModeComment.clear();
    CaseMode = 0;
    for (QStringList *column :
         {&RomanText, &TengwarText, &FollowingCondition, &PrecedingCondition, &LeavesTag})
        *column = QStringList(inertEntries);
}

void ModeTable::appendRule(const QString &romanText, const QString &tengwarText,
                           const QString &followingCondition, const QString &precedingCondition,
                           const QString &leavesTag)
{
    const auto put = [index = ruleCount()](QStringList &column, const QString &field) {
        column[index] = field;
        column.append(QString());
    };
    put(RomanText, romanText);
    put(TengwarText, tengwarText);
    put(FollowingCondition, followingCondition);
    put(PrecedingCondition, precedingCondition);
    put(LeavesTag, leavesTag);
}
