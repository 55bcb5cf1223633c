#pragma once

#include <QFlags>

/// What a numeric text box takes besides digits.
enum class NumericKey : quint8 {
    Digits = 0,
    Decimal = 1, ///< "," and "."
    Sign = 2,    ///< "+" and "-"
};
Q_DECLARE_FLAGS(NumericKeys, NumericKey)
Q_DECLARE_OPERATORS_FOR_FLAGS(NumericKeys)

/// The key code that a numeric text box keeps: the code itself for digits, control keys below 32
/// and what `allowed` names, 0 for every other key.
[[nodiscard]] constexpr char16_t FilterNumericKey(char16_t keyCode,
                                                  NumericKeys allowed = NumericKey::Digits)
{
    if (keyCode > u'9')
        return 0;
    if (allowed.testFlag(NumericKey::Decimal) && (keyCode == u',' || keyCode == u'.'))
        return keyCode;
    if (allowed.testFlag(NumericKey::Sign) && (keyCode == u'+' || keyCode == u'-'))
        return keyCode;
    return keyCode >= u' ' && keyCode < u'0' ? 0 : keyCode;
}
