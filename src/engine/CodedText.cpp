#include "engine/CodedText.h"

#include "engine/CodePage.h"

#include <algorithm>

void CodedText::append(QStringView text)
{
    const auto start = static_cast<size_t>(text_.size());
    text_.append(text);
    bytes_.resize(static_cast<size_t>(text_.size()) + maximumWindow);
    std::ranges::transform(
        text, bytes_.begin() + static_cast<std::ptrdiff_t>(start),
        [](QChar character) { return codePageByte(character.unicode()).value_or(unmatchable); });
}

void CodedText::removeFirst(qsizetype length)
{
    text_.remove(0, length);
    bytes_.erase(bytes_.begin(), bytes_.begin() + length);
}
