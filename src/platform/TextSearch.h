#pragma once

#include <QFlags>
#include <QString>

/// How a text is searched. The flags add.
enum class FindFlag : quint32 { None = 0, WholeWord = 2, MatchCase = 4 };
Q_DECLARE_FLAGS(FindFlags, FindFlag)
Q_DECLARE_OPERATORS_FOR_FLAGS(FindFlags)

/// Searches texts for one string. Without MatchCase, letters are compared by their simple case
/// folding, so that a match is always as long as the string. With WholeWord the characters on
/// either side of a match are neither letters nor digits.
class TextSearch
{
public:
    /// How much text beside a match decides whether it is a whole word: one character, which UTF-16
    /// may need two units for.
    static constexpr qsizetype Context = 2;

    /// The string is sought in the form in which a document's text has it.
    TextSearch(const QString &sought, FindFlags flags);

    /// Length of the string, and so of every match.
    [[nodiscard]] qsizetype length() const { return sought_.size(); }

    /// The position of the first match that begins at or after `start` and before `end`; it may
    /// reach beyond `end`. -1 if there is none or the string is empty.
    [[nodiscard]] qsizetype find(QStringView text, qsizetype start, qsizetype end) const;

private:
    QString sought_;
    FindFlags flags_;
};
