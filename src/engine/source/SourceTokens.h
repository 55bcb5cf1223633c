#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

/// Something wrong with a mode source, at a line (from 1).
struct SourceProblem
{
    int line = 0;
    QString message;

    bool operator==(const SourceProblem &) const = default;
};

/// A piece of one line of a mode source.
struct SourceToken
{
    enum class Kind { Word, Quoted, Group, Arrow, Comma, Bar, Colon };

    Kind kind = Kind::Word;
    QByteArray text; ///< in code page 1252, escapes resolved; the name alone for a group

    [[nodiscard]] bool isText() const { return kind == Kind::Word || kind == Kind::Quoted; }
    [[nodiscard]] bool isWord(const char *word) const { return kind == Kind::Word && text == word; }
    bool operator==(const SourceToken &) const = default;
};

struct TokenizedLine
{
    bool isIndented = false;
    QList<SourceToken> tokens;
};

/// Cuts a line into tokens; the first fault found goes to \a problem, which stays empty otherwise.
[[nodiscard]] TokenizedLine tokenizeSourceLine(QStringView line, QString &problem);

/// The text as a quoted token that reads back as the same bytes.
[[nodiscard]] QString quotedSourceText(const QByteArray &text);
