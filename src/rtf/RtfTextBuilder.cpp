#include "rtf/RtfTextBuilder.h"

#include <algorithm>
#include <utility>

namespace {

QChar plainCharacter(QChar character)
{
    constexpr QChar symbolBullet(0xF0B7);
    if (character == QChar::LineSeparator)
        return u'\n';
    return character == symbolBullet ? QChar(0x2022) : character;
}

} // namespace

void RtfTextBuilder::paragraph(const RtfParagraph &paragraph)
{
    if (!std::exchange(isFirst_, false))
        text_.append(u'\n');
    if (paragraph.format.bullet)
        text_.append(QStringLiteral("\u2022 "));
    const qsizetype start = text_.size();
    text_.append(paragraph.text);
    std::transform(text_.begin() + start, text_.end(), text_.begin() + start, plainCharacter);
}
