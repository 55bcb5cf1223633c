#include "app/WindowLayout.h"

#include <QTest>

class tst_WindowLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void split_data();
    void split();
    void everythingShown();
    void everythingHidden();
    void wideScreens();
    void tooSmallWindows();
};

namespace {

constexpr WindowMeasures Usual = {
    .width = 12000,
    .height = 9000,
    .standardToolbar = 600,
    .formattingToolbar = 510,
    .statusBar = 330,
    .caption = 285,
    .split = 5000,
    .bar = 90,
};

} // namespace

void tst_WindowLayout::split_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("split");
    QTest::addColumn<int>("placed");
    QTest::newRow("within") << 12000 << 5000 << 5000;
    QTest::newRow("left end") << 12000 << 999 << 1000;
    QTest::newRow("far left") << 12000 << -700 << 1000;
    QTest::newRow("just left") << 12000 << 1000 << 1000;
    QTest::newRow("just right") << 12000 << 11000 << 11000;
    QTest::newRow("right end") << 12000 << 11001 << 11000;
    QTest::newRow("exactly two panes") << 2000 << 5000 << 1000;
    QTest::newRow("narrow: the right rule wins") << 1900 << 5000 << 900;
    QTest::newRow("narrow from the left") << 1500 << 10 << 500;
    QTest::newRow("narrower than a pane") << 600 << 10 << -400;
}

void tst_WindowLayout::split()
{
    QFETCH(int, width);
    QFETCH(int, split);
    QFETCH(int, placed);
    WindowMeasures window = Usual;
    window.width = width;
    window.split = split;
    const WindowLayout layout = layOutWindow(window);
    QCOMPARE(layout.imgRuler.left, placed);
    QCOMPARE(layout.rtbRoman.width, placed);
    QCOMPARE(layout.rtbTengwar.left, placed + window.bar);
    QCOMPARE(layout.rtbTengwar.left + layout.rtbTengwar.width, width);
}

void tst_WindowLayout::everythingShown()
{
    const WindowLayout layout = layOutWindow(Usual);
    QCOMPARE(layout.Toolbar1, (ControlBox{0, 0, 12000, 600}));
    QCOMPARE(layout.tbrFormat, (ControlBox{0, 600, 12000, 510}));
    QCOMPARE(layout.imgRuler, (ControlBox{5000, 1110, 90, 7560}));
    QCOMPARE(layout.lblRomanCaption, (ControlBox{0, 1110, 5000, 285}));
    QCOMPARE(layout.rtbRoman, (ControlBox{0, 1395, 5000, 7275}));
    QCOMPARE(layout.lblTengwarCaption, (ControlBox{5090, 1110, 6910, 285}));
    QCOMPARE(layout.rtbTengwar, (ControlBox{5090, 1395, 6910, 7275}));
    QCOMPARE(layout.StatusBar1, (ControlBox{0, 8670, 12000, 330}));
}

void tst_WindowLayout::everythingHidden()
{
    WindowMeasures window = Usual;
    window.standardToolbar = 0;
    window.formattingToolbar = 0;
    window.statusBar = 0;
    const WindowLayout layout = layOutWindow(window);
    QCOMPARE(layout.lblRomanCaption.top, 0);
    QCOMPARE(layout.lblTengwarCaption.top, 0);
    QCOMPARE(layout.rtbRoman.top + layout.rtbRoman.height, window.height);
    QCOMPARE(layout.rtbTengwar.top + layout.rtbTengwar.height, window.height);
    QCOMPARE(layout.imgRuler, (ControlBox{5000, 0, 90, 9000}));
}

void tst_WindowLayout::wideScreens()
{
    WindowMeasures window = Usual;
    window.width = qint64(7680) * 15;
    window.height = qint64(4320) * 15;
    window.split = 80000;
    const WindowLayout layout = layOutWindow(window);
    QCOMPARE(layout.rtbTengwar, (ControlBox{80090, 1395, 35110, 63075}));
}

void tst_WindowLayout::tooSmallWindows()
{
    WindowMeasures window = Usual;
    window.height = 1500;
    QVERIFY(layOutWindow(window).rtbRoman.height < 0);
}

QTEST_APPLESS_MAIN(tst_WindowLayout)
#include "tst_windowlayout.moc"
