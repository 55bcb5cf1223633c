#include "app/Splitter.h"
#include "support/FormFixture.h"

#include <QFrame>

class tst_Splitter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dragging_data();
    void dragging();
    void theBarCoversTheSplitterWhilePressed();
    void aClickMovesNothing();
    void otherButtonsDoNothing();
    void shrinkingTheWindow();
};

namespace {

constexpr int TwipsPerPixel = 15;
constexpr int Width = 900;
constexpr int LeastPane = 67; // 1000 twips, rounded to pixels
constexpr int MostLeft = Width - LeastPane;

} // namespace

void tst_Splitter::dragging_data()
{
    QTest::addColumn<int>("by");
    QTest::addColumn<int>("left");
    QTest::newRow("to the left") << -120 << 330;
    QTest::newRow("to the right") << 75 << 525;
    QTest::newRow("to the far left") << -2000 << LeastPane;
    QTest::newRow("to the far right") << 2000 << MostLeft;
}

void tst_Splitter::dragging()
{
    QFETCH(int, by);
    QFETCH(int, left);
    const FormFixture fixture({Width, 600});
    auto *splitter = fixture.find<Splitter>("imgRuler");
    const auto *bar = fixture.find<QFrame>("fraRuler");
    QCOMPARE(splitter->x(), Width / 2);

    const QPoint grip(3, 50);
    QTest::mousePress(splitter, Qt::LeftButton, {}, grip);
    QTest::mouseMove(splitter, grip + QPoint(by, 10));
    QVERIFY(bar->isVisible());
    QCOMPARE(bar->x(), left);
    QCOMPARE(splitter->x(), Width / 2);

    QTest::mouseRelease(splitter, Qt::LeftButton, {}, grip + QPoint(by, 10));
    QVERIFY(!bar->isVisible());
    QCOMPARE(splitter->x(), left);
    QCOMPARE(fixture.find("rtbRoman")->width(), left);
    QCOMPARE(fixture.find("rtbTengwar")->x(), left + splitter->width());
    if (left == LeastPane)
        QCOMPARE(splitter->Left(), 1000);
    else if (left == MostLeft)
        QCOMPARE(splitter->Left(), Width * TwipsPerPixel - 1000);
}

void tst_Splitter::theBarCoversTheSplitterWhilePressed()
{
    const FormFixture fixture;
    auto *splitter = fixture.find<Splitter>("imgRuler");
    const auto *bar = fixture.find<QFrame>("fraRuler");
    QVERIFY(!bar->isVisible());
    QTest::mousePress(splitter, Qt::LeftButton, {}, {3, 50});
    QVERIFY(bar->isVisible());
    QCOMPARE(bar->pos(), splitter->pos());
    QCOMPARE(bar->width(), splitter->width());
    QCOMPARE(bar->height(), splitter->height() - 1);
    QTest::mouseRelease(splitter, Qt::LeftButton, {}, {3, 50});
    QVERIFY(!bar->isVisible());
}

void tst_Splitter::aClickMovesNothing()
{
    FormFixture fixture;
    fixture.form.restoreSplit(4321);
    auto *splitter = fixture.find<Splitter>("imgRuler");
    QTest::mouseClick(splitter, Qt::LeftButton, {}, {2, 50});
    QCOMPARE(splitter->Left(), 4321);
}

void tst_Splitter::otherButtonsDoNothing()
{
    const FormFixture fixture;
    auto *splitter = fixture.find<Splitter>("imgRuler");
    QTest::mousePress(splitter, Qt::RightButton, {}, {3, 50});
    QVERIFY(!fixture.find("fraRuler")->isVisible());
    QTest::mouseMove(splitter, {200, 50});
    QTest::mouseRelease(splitter, Qt::RightButton, {}, {200, 50});
    QCOMPARE(splitter->x(), 450);
}

void tst_Splitter::shrinkingTheWindow()
{
    FormFixture fixture({Width, 600});
    fixture.form.restoreSplit(12000);
    fixture.form.resize(600, 600);
    auto *splitter = fixture.find<Splitter>("imgRuler");
    QTRY_COMPARE(splitter->Left(), 600 * TwipsPerPixel - 1000);
    fixture.form.resize(Width, 600);
    QTRY_COMPARE(fixture.find("rtbTengwar")->geometry().right() + 1, Width);
    QCOMPARE(splitter->Left(), 600 * TwipsPerPixel - 1000);
}

QTEST_MAIN(tst_Splitter)
#include "tst_splitter.moc"
