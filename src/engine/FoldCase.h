#pragma once

#include <QLocale>
#include <QString>
#include <array>

/// How a mode's `CaseMode` changes a text before it is matched: 0 lower-cases by the locale, 1
/// leaves it as it is, any other value makes every text empty.
///
/// One character becomes one character of the code page. Where the locale's mapping leaves the code
/// page (the dotless i) the mapping without locale is taken, and where that leaves it too the
/// character stays. Characters outside the code page stay, so that none of them slips into it.
class CaseFolding
{
public:
    explicit CaseFolding(qint16 caseMode, const QLocale &locale = QLocale());

    /// False when every text becomes empty.
    [[nodiscard]] bool keepsText() const noexcept { return keepsText_; }
    [[nodiscard]] char16_t fold(char16_t character) const noexcept;
    [[nodiscard]] QString fold(QStringView text) const;

private:
    bool keepsText_;
    std::array<char16_t, 256> folded_; ///< by code page byte
};

/// The text as a mode of that `CaseMode` matches it.
[[nodiscard]] QString FoldCase(QStringView text, qint16 caseMode,
                               const QLocale &locale = QLocale());
