#include "tools/Numerals.h"

#include "engine/CodePage.h"
#include "engine/RuntimeError.h"
#include "tools/ListItems.h"

#include <QRandomGenerator>
#include <QTest>
#include <functional>

namespace {

QString codes(const QByteArray &hex)
{
    return fromCodePage(QByteArray::fromHex(hex));
}

/// Writes a number the plain way: digit by digit from the value, with the marks looked up by name.
QString plainNumeral(qint32 value, const NumeralStyle &style)
{
    const bool isDecimal = style.base == NumericBase::Decimal;
    const int base = isDecimal ? 10 : 12;
    QStringList pieces; // the least significant digit first
    for (qint32 rest = value; rest > 0; rest /= base) {
        const int digit = rest % base;
        const bool isSecond = QByteArrayView("3569").contains(char('0' + digit)) && digit < 10;
        QByteArray mark;
        if (style.indicator == Indicator::Dot)
            mark = isDecimal ? (isSecond ? "%" : "T") : (isSecond ? "\xC8" : "\xC9");
        else if (style.indicator == Indicator::Bar)
            mark = isDecimal ? (isSecond ? "\xEC" : "\xEE") : (isSecond ? "\"" : "'");
        if (!isDecimal && style.marksLeastSignificantDigit && pieces.isEmpty())
            mark = isSecond || style.indicator == Indicator::None ? "\x98" : "\x99";
        pieces += fromCodePage(char(0xF0 + digit) + mark);
    }
    if (!style.isReversed)
        std::reverse(pieces.begin(), pieces.end());
    return pieces.join(QString());
}

QString digitsOf(qint32 value, NumericBase base)
{
    return QString::number(value, base == NumericBase::Decimal ? 10 : 12).toUpper();
}

template<typename Function> std::optional<ErrorNumber> errorOf(Function function)
{
    try {
        function();
    } catch (const RuntimeError &error) {
        return error.number();
    }
    return std::nullopt;
}

} // namespace

class tst_Numerals : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void examples_data();
    void examples();
    void numbersInEveryStyle();
    void strayCharacters_data();
    void strayCharacters();
    void basesConvertBothWays();
    void duodecimalValue_data();
    void duodecimalValue();
    void conversionStepsInPlace();
    void wholeNumbers_data();
    void wholeNumbers();
    void outOfRange_data();
    void outOfRange();
    void listItems();
};

void tst_Numerals::examples_data()
{
    QTest::addColumn<QString>("digits");
    QTest::addColumn<NumeralStyle>("style");
    QTest::addColumn<QByteArray>("expected");
    using enum NumericBase;
    using enum Indicator;
    QTest::newRow("gross, dots, last digit, reversed")
        << u"100"_qs << NumeralStyle{Duodecimal, Dot, true, true} << QByteArray("F099F0C9F1C9");
    QTest::newRow("gross, dots, last digit")
        << u"100"_qs << NumeralStyle{Duodecimal, Dot, true, false} << QByteArray("F1C9F0C9F099");
    QTest::newRow("gross, bars") << u"100"_qs << NumeralStyle{Duodecimal, Bar, false, false}
                                 << QByteArray("F127F027F027");
    QTest::newRow("decimal, dots, reversed")
        << u"144"_qs << NumeralStyle{Decimal, Dot, false, true} << QByteArray("F454F454F154");
    QTest::newRow("decimal, plain") << u"144"_qs << NumeralStyle{} << QByteArray("F1F4F4");
    QTest::newRow("zero") << u"0"_qs << NumeralStyle{Decimal, Bar, true, true}
                          << QByteArray("F0EE");
    QTest::newRow("second class, last digit")
        << u"13"_qs << NumeralStyle{Duodecimal, Dot, true, false} << QByteArray("F1C9F398");
    QTest::newRow("no indicator, last digit")
        << u"1B"_qs << NumeralStyle{Duodecimal, None, true, false} << QByteArray("F1FB98");
    QTest::newRow("leading zeros") << u"007"_qs << NumeralStyle{} << QByteArray("F0F0F7");
    QTest::newRow("nothing") << QString() << NumeralStyle{Duodecimal, Dot, true, true}
                             << QByteArray();
}

void tst_Numerals::examples()
{
    QFETCH(QString, digits);
    QFETCH(NumeralStyle, style);
    QFETCH(QByteArray, expected);
    QCOMPARE(tengwarNumeral(digits, style), codes(expected));
}

void tst_Numerals::numbersInEveryStyle()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    QList<qint32> values = {std::numeric_limits<qint32>::max(), 1'000'000'000};
    for (qint32 value = 1; value <= 300; ++value)
        values += value;
    for (int i = 0; i < 200; ++i)
        values += random.bounded(1, std::numeric_limits<qint32>::max());
    for (const qint32 value : values) {
        for (int style = 0; style < 24; ++style) {
            const NumeralStyle written{NumericBase(style % 2), Indicator(style / 2 % 3),
                                       style / 6 % 2 == 1, style / 12 == 1};
            const QString digits = digitsOf(value, written.base);
            QVERIFY2(tengwarNumeral(digits, written) == plainNumeral(value, written),
                     qPrintable(u"%1 in style %2"_qs.arg(value).arg(style)));
        }
    }
}

void tst_Numerals::strayCharacters_data()
{
    QTest::addColumn<QString>("digits");
    QTest::addColumn<NumeralStyle>("style");
    QTest::addColumn<QByteArray>("expected");
    using enum NumericBase;
    using enum Indicator;
    QTest::newRow("like the one before")
        << u"1x2"_qs << NumeralStyle{Decimal, Dot, false, false} << QByteArray("F154F154F254");
    QTest::newRow("nothing before") << u"x2"_qs << NumeralStyle{} << QByteArray("F2");
    QTest::newRow("A is no decimal digit") << u"1A"_qs << NumeralStyle{} << QByteArray("F1F1");
    QTest::newRow("a is no digit")
        << u"1a"_qs << NumeralStyle{Duodecimal, None, false, false} << QByteArray("F1F1");
    QTest::newRow("last") << u"3."_qs << NumeralStyle{Duodecimal, Dot, true, false}
                          << QByteArray("F3C8F398");
    QTest::newRow("reversed") << u"1-2"_qs << NumeralStyle{Decimal, None, false, true}
                              << QByteArray("F2F1F1");
    QTest::newRow("digits of other scripts")
        << u"1\u0663"_qs << NumeralStyle{} << QByteArray("F1F1");
}

void tst_Numerals::strayCharacters()
{
    examples();
}

void tst_Numerals::basesConvertBothWays()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    for (int i = 0; i < 500; ++i) {
        const qint32 value = i < 300 ? i : random.bounded(std::numeric_limits<qint32>::max());
        std::vector<qint16> digits(2);
        qint16 count = 0;
        qint32 rest = value;
        CalcDuodecimal(rest, count, digits);
        QString text;
        for (int place = 0; place < count; ++place)
            text.prepend(QString::number(digits[size_t(place)], 12).toUpper());
        QCOMPARE(text, value == 0 ? QString() : digitsOf(value, NumericBase::Duodecimal));
        QCOMPARE(CalcDecimal(text), value);
    }
}

void tst_Numerals::duodecimalValue_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint32>("value");
    QTest::newRow("nothing") << QString() << 0;
    QTest::newRow("gross") << u"100"_qs << 144;
    QTest::newRow("letters") << u"AB"_qs << 131;
    QTest::newRow("stray characters count nothing") << u"1x0"_qs << 144;
    QTest::newRow("small letters too") << u"1b"_qs << 12;
    QTest::newRow("largest") << u"4BB2308A7"_qs << std::numeric_limits<qint32>::max();
    QTest::newRow("leading zeros") << QString(200, u'0') + u'7' << 7;
}

void tst_Numerals::duodecimalValue()
{
    QFETCH(QString, text);
    QTEST(CalcDecimal(text), "value");
}

void tst_Numerals::conversionStepsInPlace()
{
    qint32 value = 12 * 12 * 3 + 5;
    qint16 index = 0;
    std::vector<qint16> digits(2);
    CalcDuodecimal(value, index, digits);
    QCOMPARE(value, 0);
    QCOMPARE(index, qint16(3));
    QCOMPARE(digits, (std::vector<qint16>{5, 0, 3, 0}));
}

void tst_Numerals::wholeNumbers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint32>("value");
    QTest::newRow("digits") << u"0123"_qs << 123;
    QTest::newRow("blanks") << u" 7 "_qs << 7;
    QTest::newRow("half to even, down") << u"2.5"_qs << 2;
    QTest::newRow("half to even, up") << u"3.5"_qs << 4;
    QTest::newRow("largest") << u"2147483647"_qs << 2147483647;
}

void tst_Numerals::wholeNumbers()
{
    QFETCH(QString, text);
    QTEST(wholeNumber(text), "value");
}

void tst_Numerals::outOfRange_data()
{
    using Action = std::function<void()>;
    QTest::addColumn<Action>("action");
    QTest::addColumn<ErrorNumber>("error");
    const auto whole = [](const QString &text) {
        return Action([text] { (void)wholeNumber(text); });
    };
    const auto duodecimal = [](const QString &text) {
        return Action([text] { (void)CalcDecimal(text); });
    };
    QTest::newRow("beyond 32 bits") << whole(u"2147483648"_qs) << ErrorNumber::Overflow;
    QTest::newRow("far beyond") << whole(u"1e999"_qs) << ErrorNumber::Overflow;
    QTest::newRow("infinite") << whole(u"inf"_qs) << ErrorNumber::Overflow;
    QTest::newRow("no number") << whole(u"12a"_qs) << ErrorNumber::TypeMismatch;
    QTest::newRow("nothing") << whole(QString()) << ErrorNumber::TypeMismatch;
    QTest::newRow("duodecimal") << duodecimal(u"4BB2308A8"_qs) << ErrorNumber::Overflow;
    QTest::newRow("duodecimal, far") << duodecimal(QString(400, u'B')) << ErrorNumber::Overflow;
    QTest::newRow("duodecimal zeros, far")
        << duodecimal(QString(400, u'0')) << ErrorNumber::Overflow;
    QTest::newRow("negative") << Action([] {
        qint32 value = -5;
        qint16 index = 0;
        std::vector<qint16> digits(2);
        CalcDuodecimal(value, index, digits);
    }) << ErrorNumber::Overflow;
}

void tst_Numerals::outOfRange()
{
    QFETCH(std::function<void()>, action);
    QFETCH(ErrorNumber, error);
    QCOMPARE(errorOf(action), std::optional(error));
}

void tst_Numerals::listItems()
{
    QCOMPARE(listItemTexts().size(), ListItemCount);
    QCOMPARE(listItemTexts()[0], u"1, a, I ..."_qs);
    QCOMPARE(listItemTexts()[8], u"9, i, IX ..."_qs);
    QCOMPARE(listItemTexts()[13], u"14, n, XIV ..."_qs);
    QCOMPARE(listItemTexts()[23], u"24, x, XXIV ..."_qs);
    // Each item with its variant of the marks.
    const QStringList items = u"1A qA aA zA 2B wB sB xB 3A eA dA cA "
                              u"4B rB fB vB 5B tB gB bB 6A yA hA nA"_qs.split(u' ');
    for (int item = 0; item < ListItemCount; ++item) {
        const QChar letter = items[item][0];
        const bool isFirst = items[item][1] == u'A';
        QCOMPARE(tengwarListItem(item, Indicator::None), QString(letter));
        QCOMPARE(tengwarListItem(item, Indicator::Dot), QString(letter) + (isFirst ? u'T' : u'%'));
        QCOMPARE(tengwarListItem(item, Indicator::Bar), QString(letter) + (isFirst ? u'[' : u'{'));
    }
}

QTEST_GUILESS_MAIN(tst_Numerals)
#include "tst_numerals.moc"
