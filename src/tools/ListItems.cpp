#include "tools/ListItems.h"

#include <array>

namespace {

/// The primary letters in their order, four to a series.
constexpr std::array<char16_t, ListItemCount> Letters = {
    u'1', u'q', u'a', u'z', u'2', u'w', u's', u'x', u'3', u'e', u'd', u'c',
    u'4', u'r', u'f', u'v', u'5', u't', u'g', u'b', u'6', u'y', u'h', u'n'};

constexpr std::array<const char *, ListItemCount> RomanNumerals = {
    "I",    "II",  "III", "IV",  "V",    "VI",    "VII", "VIII", "IX",  "X",    "XI",    "XII",
    "XIII", "XIV", "XV",  "XVI", "XVII", "XVIII", "XIX", "XX",   "XXI", "XXII", "XXIII", "XXIV"};

/// Letters with two bows are wide, and their marks stand further back.
bool isWide(int item)
{
    constexpr int SeriesLength = 4;
    const int series = item / SeriesLength;
    return series == 1 || series == 3 || series == 4;
}

QString markOf(int item, Indicator indicator)
{
    switch (indicator) {
    case Indicator::Dot:
        return isWide(item) ? QStringLiteral("%") : QStringLiteral("T");
    case Indicator::Bar:
        return isWide(item) ? QStringLiteral("{") : QStringLiteral("[");
    case Indicator::None:
        break;
    }
    return {};
}

} // namespace

QStringList listItemTexts()
{
    QStringList texts;
    for (int item = 0; item < ListItemCount; ++item)
        texts += QStringLiteral("%1, %2, %3 ...")
                     .arg(item + 1)
                     .arg(QChar(u'a' + item))
                     .arg(QLatin1String(RomanNumerals[size_t(item)]));
    return texts;
}

QString tengwarListItem(int item, Indicator indicator)
{
    return Letters[size_t(item)] + markOf(item, indicator);
}
