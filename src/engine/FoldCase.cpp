#include "engine/FoldCase.h"

#include "engine/CodePage.h"

#include <algorithm>

namespace {

constexpr qint16 foldsToLowerCase = 0;
constexpr qint16 matchesAsItStands = 1;

char16_t lowerCase(char16_t character, const QLocale &locale)
{
    const QString byLocale = locale.toLower(QString(QChar(character)));
    if (byLocale.size() == 1 && codePageByte(byLocale.front().unicode()))
        return byLocale.front().unicode();
    const char16_t plain = QChar(character).toLower().unicode();
    return codePageByte(plain) ? plain : character;
}

} // namespace

CaseFolding::CaseFolding(qint16 caseMode, const QLocale &locale)
    : keepsText_(caseMode == foldsToLowerCase || caseMode == matchesAsItStands)
{
    for (size_t byte = 0; byte < folded_.size(); ++byte) {
        const char16_t character = codePageCharacter(static_cast<uchar>(byte));
        folded_[byte] = caseMode == foldsToLowerCase ? lowerCase(character, locale) : character;
    }
}

char16_t CaseFolding::fold(char16_t character) const noexcept
{
    const std::optional<uchar> byte = codePageByte(character);
    return byte ? folded_[*byte] : character;
}

QString CaseFolding::fold(QStringView text) const
{
    if (!keepsText_)
        return {};
    QString folded(text.size(), Qt::Uninitialized);
    std::ranges::transform(text, folded.begin(),
                           [this](QChar character) { return QChar(fold(character.unicode())); });
    return folded;
}

QString FoldCase(QStringView text, qint16 caseMode, const QLocale &locale)
{
    return CaseFolding(caseMode, locale).fold(text);
}
