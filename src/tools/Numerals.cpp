#include "tools/Numerals.h"

#include "engine/CodePage.h"
#include "engine/RuntimeError.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int Duodecimal = 12;
constexpr uchar DigitGlyphs = 0xF0; ///< code of the digit 0; the other eleven follow
constexpr uchar FirstLsdMark = 0x99;
constexpr uchar SecondLsdMark = 0x98;

/// The marks that follow digits of the first and of the second class; none is 0.
struct Marks
{
    uchar first = 0;
    uchar second = 0;
};

Marks marksOf(NumericBase base, Indicator indicator)
{
    const bool isDecimal = base == NumericBase::Decimal;
    switch (indicator) {
    case Indicator::Dot:
        return isDecimal ? Marks{'T', '%'} : Marks{0xC9, 0xC8};
    case Indicator::Bar:
        return isDecimal ? Marks{0xEE, 0xEC} : Marks{'\'', '"'};
    case Indicator::None:
        break;
    }
    return {};
}

/// The glyphs of the first class take the mark in one place, the others in another.
bool isFirstClass(int digit)
{
    return digit != 3 && digit != 5 && digit != 6 && digit != 9;
}

QString fontText(uchar code)
{
    return code == 0 ? QString() : QString(QChar(codePageCharacter(code)));
}

/// The value of a digit of that base; -1 for any other character.
int digitValue(QChar character, NumericBase base)
{
    if (character >= u'0' && character <= u'9')
        return character.unicode() - u'0';
    const bool isLetter = character == u'A' || character == u'B';
    return isLetter && base == NumericBase::Duodecimal ? character.unicode() - u'A' + 10 : -1;
}

/// Rounds as numbers of a whole type are assigned: halves to even.
qint32 toInteger(double value)
{
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<qint32>::min() &&
          rounded <= std::numeric_limits<qint32>::max()))
        throw RuntimeError(ErrorNumber::Overflow);
    return qint32(rounded);
}

} // namespace

QString tengwarNumeral(QStringView digits, const NumeralStyle &style)
{
    const Marks marks = marksOf(style.base, style.indicator);
    const bool marksLast =
        style.base == NumericBase::Duodecimal && style.marksLeastSignificantDigit;
    QString numeral;
    QString piece; // a digit and its mark
    for (qsizetype i = 0; i < digits.size(); ++i) {
        if (const int digit = digitValue(digits[i], style.base); digit >= 0)
            piece = fontText(uchar(DigitGlyphs + digit)) +
                    fontText(isFirstClass(digit) ? marks.first : marks.second);
        if (marksLast && i == digits.size() - 1) {
            // Without an indicator this is the second mark, whatever the digit.
            const bool isFirst = piece.right(1) == fontText(marks.first);
            piece = piece.left(1) + fontText(isFirst ? FirstLsdMark : SecondLsdMark);
        }
        numeral.insert(style.isReversed ? 0 : numeral.size(), piece);
    }
    return numeral;
}

qint32 wholeNumber(const QString &text)
{
    bool isNumber = false;
    const double value = text.trimmed().toDouble(&isNumber);
    if (!isNumber && std::isinf(value))
        throw RuntimeError(ErrorNumber::Overflow);
    if (!isNumber)
        throw RuntimeError(ErrorNumber::TypeMismatch);
    return toInteger(value);
}

qint32 CalcDecimal(QStringView text)
{
    qint32 value = 0;
    for (qsizetype place = 0; place < text.size(); ++place) {
        const QChar character = text[text.size() - 1 - place];
        const int digit = std::max(digitValue(character, NumericBase::Duodecimal), 0);
        value = toInteger(value + std::pow(Duodecimal, place) * digit);
    }
    return value;
}

void CalcDuodecimal(qint32 &value, qint16 &index, std::vector<qint16> &digits)
{
    if (value < 0)
        throw RuntimeError(ErrorNumber::Overflow);
    while (value != 0) {
        if (index > 0)
            digits.push_back(0);
        digits.at(size_t(index)) = qint16(value % Duodecimal);
        value /= Duodecimal;
        ++index;
    }
}
