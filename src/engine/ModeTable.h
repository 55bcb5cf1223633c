#pragma once

#include <QString>
#include <QStringList>

/// A loaded mode: the rules that turn roman text into Tengwar font characters, in file order.
///
/// The five lists run in parallel and always have the same length: entry i of each is a field of
/// rule i. After the rules stand two empty entries, which match nothing. No field holds a TAB,
/// since a TAB ends a field in the file.
struct ModeTable
{
    ModeTable() { clear(); }

    /// Back to the empty table: no comment, `CaseMode` 0, two empty entries.
    void clear();

    /// Adds a rule behind the last one and in front of the two empty entries.
    void appendRule(const QString &romanText, const QString &tengwarText,
                    const QString &followingCondition, const QString &precedingCondition,
                    const QString &leavesTag);

    /// Index of the last entry: the number of rules plus one.
    [[nodiscard]] qsizetype upperBound() const { return RomanText.size() - 1; }
    [[nodiscard]] qsizetype ruleCount() const { return RomanText.size() - inertEntries; }

    bool operator==(const ModeTable &) const = default;

    static constexpr qsizetype inertEntries = 2;
    /// The most rules that a text can be transcribed with: the upper bound is a 16-bit number.
    static constexpr qsizetype maximumRules = 32766;

    QString ModeComment;
    qint16 CaseMode = 0; ///< 0: the text is folded to lower case first; 1: it is matched as it is
    QStringList RomanText;
    QStringList TengwarText;
    QStringList FollowingCondition;
    QStringList PrecedingCondition;
    QStringList LeavesTag;
};

/// The character that begins a condition which stands for a word boundary (carriage return).
inline constexpr QChar wordBoundaryMark = u'\r';
