#pragma once

#include <QList>
#include <QString>

/// A line of a golden corpus: a text, the codes that it becomes, and why.
struct GoldenLine
{
    QString text;
    QString codes;
    QString reason;
    QString comment; ///< the whole line where it holds no example
};

/// A corpus: one example a line, its three fields separated by TABs; lines without a TAB are for
/// the reader. In the codes, \xNN is a byte of code page 1252 and \\ a backslash.
class GoldenFile
{
public:
    [[nodiscard]] bool read(const QString &fileName);
    [[nodiscard]] bool write(const QString &fileName) const;

    QList<GoldenLine> lines;
};
