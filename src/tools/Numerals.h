#pragma once

#include "tools/Indicator.h"

#include <QString>
#include <vector>

/// The base in which a number is written, by the number that is stored for it.
enum class NumericBase : qint16 { Decimal = 0, Duodecimal = 1 };

/// How a number is written.
struct NumeralStyle
{
    NumericBase base = NumericBase::Decimal;
    Indicator indicator = Indicator::None;
    bool marksLeastSignificantDigit = false; ///< in the duodecimal base only
    bool isReversed = false;                 ///< the least significant digit comes first
};

/// The Tengwar numeral, in characters of a Tengwar font, for digits with the most significant one
/// first. The digits are 0 to 9 and, in the duodecimal base, also A and B. Any other character is
/// written like the one before it.
[[nodiscard]] QString tengwarNumeral(QStringView digits, const NumeralStyle &style);

/// The number that a text stands for, rounded to a whole one, halves to even. Throws RuntimeError:
/// TypeMismatch for a text that is no number, Overflow for a number beyond 32 bits.
[[nodiscard]] qint32 wholeNumber(const QString &text);

/// The value of a duodecimal number; characters that are no digits count as 0. Throws RuntimeError
/// (Overflow) for a value beyond 32 bits.
[[nodiscard]] qint32 CalcDecimal(QStringView text);

/// Puts the duodecimal digits of `value` into `digits`, the least significant one at `index`; the
/// array grows by one for every digit beyond index 0. Afterwards the value is 0 and the index one
/// past the last digit. Throws RuntimeError (Overflow) for a negative value, whose digits would
/// never end.
void CalcDuodecimal(qint32 &value, qint16 &index, std::vector<qint16> &digits);
