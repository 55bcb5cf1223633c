#include "app/Splitter.h"
#include "support/FormFixture.h"

#include <QAccessible>
#include <QFrame>

using namespace Qt::Literals::StringLiterals;

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
    void keysMoveIt_data();
    void keysMoveIt();
    void otherKeysDoNothing();
    void keysLeadBack_data();
    void keysLeadBack();
    void aClickLeavesTheFocus();
    void screenReadersMeetIt();
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

void tst_Splitter::keysMoveIt_data()
{
    QTest::addColumn<QList<Qt::Key>>("keys");
    QTest::addColumn<int>("left"); // in twips, from 6750
    QTest::newRow("left") << QList{Qt::Key_Left} << 6600;
    QTest::newRow("right") << QList{Qt::Key_Right} << 6900;
    QTest::newRow("there and back") << QList{Qt::Key_Right, Qt::Key_Left} << 6750;
    QTest::newRow("to the far left") << QList{Qt::Key_Home} << 1000;
    QTest::newRow("no further left") << QList{Qt::Key_Home, Qt::Key_Left} << 1000;
    QTest::newRow("to the far right") << QList{Qt::Key_End} << Width * TwipsPerPixel - 1000;
    QTest::newRow("no further right")
        << QList{Qt::Key_End, Qt::Key_Right} << Width * TwipsPerPixel - 1000;
}

void tst_Splitter::keysMoveIt()
{
    QFETCH(QList<Qt::Key>, keys);
    QFETCH(int, left);
    const FormFixture fixture({Width, 600});
    auto *splitter = fixture.find<Splitter>("imgRuler");
    QCOMPARE(splitter->Left(), 6750);
    splitter->setFocus(Qt::ShortcutFocusReason);
    for (const Qt::Key key : keys)
        QTest::keyClick(QApplication::focusWidget(), key);
    QVERIFY(splitter->hasFocus());
    QCOMPARE(splitter->Left(), left);
    QCOMPARE(splitter->x(), qRound(left / double(TwipsPerPixel)));
    QCOMPARE(fixture.find("rtbRoman")->width(), splitter->x());
}

void tst_Splitter::otherKeysDoNothing()
{
    const FormFixture fixture({Width, 600});
    auto *splitter = fixture.find<Splitter>("imgRuler");
    splitter->setFocus(Qt::ShortcutFocusReason);
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_A})
        QTest::keyClick(splitter, key);
    QTest::keyClick(splitter, Qt::Key_Left, Qt::ControlModifier);
    QCOMPARE(splitter->Left(), 6750);
    QVERIFY(splitter->hasFocus());
}

void tst_Splitter::keysLeadBack_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Return") << Qt::Key_Return;
    QTest::newRow("Enter") << Qt::Key_Enter;
    QTest::newRow("Esc") << Qt::Key_Escape;
}

void tst_Splitter::keysLeadBack()
{
    QFETCH(Qt::Key, key);
    const FormFixture fixture;
    auto *splitter = fixture.find<Splitter>("imgRuler");
    fixture.find("rtbTengwar")->setFocus();
    splitter->setFocus(Qt::ShortcutFocusReason);
    QTest::keyClick(splitter, key);
    QVERIFY(fixture.find("rtbTengwar")->hasFocus());
}

void tst_Splitter::aClickLeavesTheFocus()
{
    const FormFixture fixture;
    QVERIFY(fixture.find("rtbRoman")->hasFocus());
    QTest::mouseClick(fixture.find("imgRuler"), Qt::LeftButton, {}, {3, 50});
    QVERIFY(fixture.find("rtbRoman")->hasFocus());
}

void tst_Splitter::screenReadersMeetIt()
{
    const FormFixture fixture({Width, 600});
    auto *splitter = fixture.find<Splitter>("imgRuler");
    QAccessibleInterface *met = QAccessible::queryAccessibleInterface(splitter);
    QCOMPARE(met->role(), QAccessible::Splitter);
    QCOMPARE(met->text(QAccessible::Name), u"Divider between the panes"_s);
    QAccessibleValueInterface *value = met->valueInterface();
    QVERIFY(value);
    QCOMPARE(value->currentValue().toDouble(), 50);
    QCOMPARE(value->minimumValue().toDouble() + value->maximumValue().toDouble(), 100);
    value->setCurrentValue(25);
    QCOMPARE(splitter->Left(), Width * TwipsPerPixel / 4);
    QCOMPARE(splitter->x(), Width / 4);
    value->setCurrentValue(100);
    QCOMPARE(value->currentValue(), value->maximumValue());
}

QTEST_MAIN(tst_Splitter)
#include "tst_splitter.moc"
