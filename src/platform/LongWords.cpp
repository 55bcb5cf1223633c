#include "platform/LongWords.h"

#include <QTextBlock>
#include <QTextBoundaryFinder>
#include <QTextDocument>

namespace {

/// A word of twice this length fills one section at least.
constexpr qsizetype sectionLength = 2'000;

bool isWithinWord(QStringView section)
{
    if (section.contains(u' ')) // as nearly every one does
        return false;
    QTextBoundaryFinder lines(QTextBoundaryFinder::Line, section.data(), section.size());
    return lines.toNextBoundary() >= section.size();
}

bool hasLongWord(QStringView text)
{
    for (; text.size() >= sectionLength; text = text.sliced(sectionLength)) {
        if (isWithinWord(text.first(sectionLength)))
            return true;
    }
    return false;
}

} // namespace

bool haveLongWord(const QTextDocument &document, int from, int to)
{
    for (QTextBlock block = document.findBlock(from); block.isValid() && block.position() <= to;
         block = block.next()) {
        if (block.length() > sectionLength && hasLongWord(block.text()))
            return true;
    }
    return false;
}
