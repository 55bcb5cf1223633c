#include "app/WindowPlacement.h"

#include <QTest>

class tst_WindowPlacement : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void places_data();
    void places();
};

void tst_WindowPlacement::places_data()
{
    QTest::addColumn<QRect>("window");
    QTest::addColumn<QPoint>("place");
    const auto row = [](const char *name, const QRect &window, const QPoint &place) {
        QTest::newRow(name) << window << place;
    };
    row("on the screen", {100, 100, 800, 600}, {100, 100});
    row("on the second screen", {2000, 50, 800, 600}, {2000, 50});
    row("across both", {1600, 50, 800, 600}, {1600, 50});
    row("half out on the left", {-400, 100, 800, 600}, {-400, 100});
    row("larger than the screen", {0, 0, 5000, 3000}, {0, 0});
    row("a sliver on the right", {3190, 100, 800, 600}, {1120, 100});
    row("beyond the right", {9000, 100, 800, 600}, {1120, 100});
    row("beyond the left", {-900, 100, 800, 600}, {0, 100});
    row("below", {100, 2000, 800, 600}, {100, 480});
    row("title above the screen", {100, -200, 800, 600}, {100, 0});
    row("beyond and larger", {9000, 9000, 5000, 3000}, {0, 0});
    row("narrow but whole", {10, 10, 40, 40}, {10, 10});
}

void tst_WindowPlacement::places()
{
    QFETCH(QRect, window);
    const QList<QRect> screens = {{0, 0, 1920, 1080}, {1920, 0, 1280, 1024}};
    QTEST(reachablePlace(window, screens), "place");
}

QTEST_APPLESS_MAIN(tst_WindowPlacement)
#include "tst_windowplacement.moc"
