#include "platform/ScreenUnits.h"

#include <QImage>
#include <QTest>
#include <limits>

class tst_ScreenUnits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void twipsToAPixel();
    void conversions_data();
    void conversions();
};

void tst_ScreenUnits::twipsToAPixel()
{
    constexpr double metreInInches = 39.3701;
    QImage device(1, 1, QImage::Format_Mono);
    device.setDotsPerMeterX(int(96 * metreInInches + 0.5));
    device.setDotsPerMeterY(int(120 * metreInInches + 0.5));
    QCOMPARE(twipsPerPixelX(device), 15.0);
    QCOMPARE(twipsPerPixelY(device), 12.0);
}

void tst_ScreenUnits::conversions_data()
{
    QTest::addColumn<double>("pixels");
    QTest::addColumn<double>("twipsPerPixel");
    QTest::addColumn<int>("twips");
    QTest::addColumn<int>("wholePixels");
    constexpr int largest = std::numeric_limits<int>::max();
    constexpr int smallest = std::numeric_limits<int>::min();
    QTest::newRow("none") << 0.0 << 15.0 << 0 << 0;
    QTest::newRow("whole") << 100.0 << 15.0 << 1500 << 100;
    QTest::newRow("negative") << -2.0 << 15.0 << -30 << -2;
    QTest::newRow("nearest") << 1.25 << 15.0 << 19 << 1;
    QTest::newRow("fraction") << 3.0 << 7.5 << 23 << 3;
    QTest::newRow("too large") << 1e300 << 15.0 << largest << largest / 15;
    QTest::newRow("too small") << -1e300 << 15.0 << smallest << smallest / 15 - 1;
}

void tst_ScreenUnits::conversions()
{
    QFETCH(double, pixels);
    QFETCH(double, twipsPerPixel);
    QFETCH(int, twips);
    QFETCH(int, wholePixels);
    QCOMPARE(toTwips(pixels, twipsPerPixel), twips);
    QCOMPARE(toPixels(twips, twipsPerPixel), wholePixels);
}

QTEST_MAIN(tst_ScreenUnits)
#include "tst_screenunits.moc"
