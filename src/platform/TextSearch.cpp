#include "platform/TextSearch.h"

#include "platform/TextPosition.h"
#include <algorithm>

namespace {

bool endsWord(QStringView text)
{
    if (text.size() > 1 && text.back().isLowSurrogate())
        return QChar::isLetterOrNumber(QChar::surrogateToUcs4(text[text.size() - 2], text.back()));
    return !text.isEmpty() && text.back().isLetterOrNumber();
}

bool beginsWord(QStringView text)
{
    if (text.size() > 1 && text.front().isHighSurrogate())
        return QChar::isLetterOrNumber(QChar::surrogateToUcs4(text.front(), text[1]));
    return !text.isEmpty() && text.front().isLetterOrNumber();
}

} // namespace

TextSearch::TextSearch(const QString &sought, FindFlags flags)
    : sought_(userForm(sought)), flags_(flags)
{
}

qsizetype TextSearch::find(QStringView text, qsizetype start, qsizetype end) const
{
    if (sought_.isEmpty())
        return -1;
    const auto isWholeWord = [&](qsizetype position) {
        return !endsWord(text.first(position)) && !beginsWord(text.sliced(position + length()));
    };
    // A match begins before `end`, so nothing beyond this is looked at.
    const auto range = text.first(std::clamp<qsizetype>(end + length() - 1, 0, text.size()));
    const auto sensitivity =
        flags_.testFlag(FindFlag::MatchCase) ? Qt::CaseSensitive : Qt::CaseInsensitive;
    qsizetype position = range.indexOf(sought_, std::max<qsizetype>(start, 0), sensitivity);
    while (position >= 0 && flags_.testFlag(FindFlag::WholeWord) && !isWholeWord(position))
        position = range.indexOf(sought_, position + 1, sensitivity);
    return position;
}
