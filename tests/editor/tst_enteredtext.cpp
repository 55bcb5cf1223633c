#include "editor/EnteredText.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

namespace {

/// A list of font sizes beside another control that can take the focus.
struct Lists
{
    QWidget window;
    QComboBox list{&window};
    QLineEdit other{&window};
    QStringList applied;

    Lists()
    {
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(&list);
        layout->addWidget(&other);
        list.setEditable(true);
        for (int size = 6; size <= 72; size += 2)
            list.addItem(QString::number(size));
        list.clearEditText();
        onEntered(list, [this](const QString &text) { applied += text; });
        window.show();
        if (!QTest::qWaitForWindowActive(&window))
            qFatal("The window did not become active");
        list.setFocus();
    }
    ~Lists()
    {
        list.setParent(nullptr);
        other.setParent(nullptr);
    }
};

} // namespace

class tst_EnteredText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QApplication::setDoubleClickInterval(0); // for that long a popup ignores mouse buttons
    }

    void typed_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("an entry") << QStringLiteral("12");
        QTest::newRow("the start of an entry") << QStringLiteral("7");
        QTest::newRow("no entry") << QStringLiteral("13.5");
        QTest::newRow("no number") << QStringLiteral("big");
        QTest::newRow("nothing") << QString();
    }

    void typed()
    {
        QFETCH(QString, text);
        for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
            Lists lists;
            QTest::keyClicks(&lists.list, text);
            QCOMPARE(lists.applied, QStringList());
            QTest::keyClick(&lists.list, enter);
            QCOMPARE(lists.applied, QStringList(text));
            QTest::keyClick(&lists.list, enter);
            QCOMPARE(lists.applied, QStringList({text, text}));
            QCOMPARE(lists.list.count(), 34);
        }
    }

    void typedAndLeft()
    {
        Lists lists;
        QTest::keyClicks(&lists.list, QStringLiteral("12"));
        lists.other.setFocus();
        QTRY_VERIFY(lists.other.hasFocus());
        QCOMPARE(lists.applied, QStringList());
    }

    void chosenByMouse()
    {
        Lists lists;
        lists.list.showPopup();
        QAbstractItemView *view = lists.list.view();
        QTRY_VERIFY(view->isVisible());
        const QRect entry = view->visualRect(lists.list.model()->index(3, 0));
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, entry.center());
        QTRY_COMPARE(lists.applied, QStringList(QStringLiteral("12")));
    }

    void chosenByKeys()
    {
        Lists lists;
        QTest::keyClick(&lists.list, Qt::Key_Down, Qt::AltModifier);
        QAbstractItemView *view = lists.list.view();
        QTRY_VERIFY(view->isVisible());
        view->setCurrentIndex(lists.list.model()->index(1, 0));
        QTest::keyClick(view, Qt::Key_Return);
        QTRY_COMPARE(lists.applied, QStringList(QStringLiteral("8")));
    }

    void thePopupClosedWithoutAChoice()
    {
        Lists lists;
        lists.list.showPopup();
        QTRY_VERIFY(lists.list.view()->isVisible());
        QTest::keyClick(lists.list.view(), Qt::Key_Escape);
        QTRY_VERIFY(!lists.list.view()->isVisible());
        QCOMPARE(lists.applied, QStringList());
    }
};

QTEST_MAIN(tst_EnteredText)
#include "tst_enteredtext.moc"
