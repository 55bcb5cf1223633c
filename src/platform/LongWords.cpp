#include "platform/LongWords.h"

#include <QTextBlock>
#include <QTextBoundaryFinder>
#include <QTextDocument>
#include <algorithm>

namespace {

/// Laying out a word of this length between words takes no time that is felt while typing.
constexpr qsizetype longestUsual = 10'000;

/// The last place in the text where a line may be broken; 0 if there is none.
qsizetype lastBreak(QStringView text)
{
    if (const qsizetype space = text.lastIndexOf(u' '); space >= 0) // as there nearly always is
        return space + 1;
    QTextBoundaryFinder lines(QTextBoundaryFinder::Line, text.data(), text.size());
    lines.toEnd();
    return std::max<qsizetype>(lines.toPreviousBoundary(), 0);
}

bool hasLongWord(QStringView text)
{
    while (text.size() > longestUsual) {
        const qsizetype next = lastBreak(text.first(longestUsual + 1));
        if (next == 0)
            return true;
        text = text.sliced(next);
    }
    return false;
}

} // namespace

bool haveLongWord(const QTextDocument &document, int from, int to)
{
    for (QTextBlock block = document.findBlock(from); block.isValid() && block.position() <= to;
         block = block.next()) {
        if (block.length() > longestUsual && hasLongWord(block.text()))
            return true;
    }
    return false;
}
