#include "rtf/RtfTables.h"

#include "rtf/RtfCodePages.h"
#include "rtf/RtfError.h"
#include "rtf/RtfFormat.h"
#include <algorithm>

namespace {

const QString defaultFamily = QStringLiteral("Times New Roman");

/// A name as it can be written again.
QString fontName(QString name)
{
    name.removeIf([](QChar c) { return !c.isPrint() || c == u'{' || c == u'}' || c == u'\\'; });
    name = name.trimmed();
    return name.isEmpty() ? defaultFamily : name;
}

} // namespace

void RtfFontTable::begin(int number)
{
    entry_ = {};
    number_ = number;
}

void RtfFontTable::setCharset(int charset)
{
    constexpr int defaultCharset = 1; // says nothing
    entry_.charset = charset == defaultCharset ? 0 : std::clamp(charset, 0, 255);
    if (!entry_.codePage)
        entry_.codePage = RtfCodePage::ofCharset(charset);
}

void RtfFontTable::setCodePage(int codePage)
{
    entry_.codePage = codePage;
}

void RtfFontTable::addName(QStringView text)
{
    if (number_ < 0)
        return;
    const qsizetype end = text.indexOf(u';');
    entry_.name.append(end < 0 ? text : text.first(end));
    if (end < 0)
        return;
    entry_.name = fontName(entry_.name);
    if (isTengwarFont(entry_.name) && entry_.codePage == RtfCodePage::symbol)
        entry_.codePage = RtfCodePage::latin;
    if (fonts_.isEmpty() || number_ < firstNumber_)
        firstNumber_ = number_;
    if (fonts_.size() < RtfLimits::tableEntries)
        fonts_.insert(number_, entry_);
    number_ = -1;
}

const RtfFont &RtfFontTable::font(int number, int otherwise) const
{
    static const RtfFont none{defaultFamily, 0, std::nullopt};
    auto found = fonts_.constFind(number);
    if (found == fonts_.constEnd())
        found = fonts_.constFind(otherwise);
    return found == fonts_.constEnd() ? none : *found;
}

void RtfColourTable::set(RtfTableWord component, int value)
{
    const QRgb old = entry_.value_or(qRgb(0, 0, 0));
    const int byte = std::clamp(value, 0, 255);
    if (component == RtfTableWord::Red)
        entry_ = qRgb(byte, qGreen(old), qBlue(old));
    else if (component == RtfTableWord::Green)
        entry_ = qRgb(qRed(old), byte, qBlue(old));
    else if (component == RtfTableWord::Blue)
        entry_ = qRgb(qRed(old), qGreen(old), byte);
}

void RtfColourTable::addText(QStringView text)
{
    for (auto ends = text.count(u';'); ends > 0; --ends) {
        if (colours_.size() < static_cast<size_t>(RtfLimits::tableEntries))
            colours_.push_back(entry_);
        entry_.reset();
    }
}

std::optional<QRgb> RtfColourTable::colour(int index) const
{
    if (index < 0 || static_cast<size_t>(index) >= colours_.size())
        return std::nullopt;
    return colours_[static_cast<size_t>(index)];
}

void RtfListTable::word(RtfTableWord word, int parameter)
{
    constexpr size_t mostLevels = 9;
    if (word == RtfTableWord::List)
        levels_.clear();
    else if (word == RtfTableWord::ListLevel && levels_.size() < mostLevels)
        levels_.push_back(0);
    else if (word == RtfTableWord::NumberFormat && !levels_.empty())
        levels_.back() = parameter;
    else if (word == RtfTableWord::ListId && lists_.size() < RtfLimits::tableEntries)
        lists_.insert(parameter, levels_);
}

void RtfListTable::overrideWord(RtfTableWord word, int parameter)
{
    if (word == RtfTableWord::ListId)
        overriddenList_ = parameter;
}

void RtfListTable::nameOverride(int number)
{
    if (overrides_.size() < RtfLimits::tableEntries)
        overrides_.insert(number, overriddenList_);
}

std::optional<bool> RtfListTable::isBullet(int number, int level) const
{
    constexpr int bulletFormat = 23;
    const auto list = lists_.constFind(overrides_.value(number));
    if (list == lists_.constEnd() || list->empty())
        return std::nullopt;
    const auto last = static_cast<int>(list->size()) - 1;
    return (*list)[static_cast<size_t>(std::clamp(level, 0, last))] == bulletFormat;
}
