#include "tools/frmSpecialCharacters.h"

#include "editor/SharedState.h"
#include "engine/CodePage.h"
#include "tools/CharacterGrid.h"
#include "tools/SignPainter.h"

#include <QAccessible>
#include <QApplication>
#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QTest>

namespace {

class Picker
{
public:
    void open()
    {
        dialog = std::make_unique<frmSpecialCharacters>(state, nullptr);
        dialog->show();
        QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
        QCoreApplication::processEvents();
    }

    template<typename Control> [[nodiscard]] Control &get(const char *name) const
    {
        return *dialog->findChild<Control *>(QLatin1String(name));
    }

    [[nodiscard]] CharacterGrid &grid() const { return get<CharacterGrid>("grdChars"); }
    [[nodiscard]] QLineEdit &box() const { return get<QLineEdit>("txtCharacters"); }
    [[nodiscard]] QString sample() const { return get<QLabel>("lblSample").text(); }

    void go(int row, int column) { grid().setCurrentIndex(grid().model()->index(row, column)); }

    SharedState state;
    std::unique_ptr<frmSpecialCharacters> dialog;
};

/// The part of a picture of 60 pixels' width and height in which the sign has left ink, drawn into
/// its inner 50.
QRect inkOf(const QFont &font, QChar sign)
{
    QImage image(60, 60, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    drawSign(painter, QRectF(5, 5, 50, 50), font, sign, Qt::black);
    painter.end();
    QRect ink;
    for (int y = 0; y < 60; ++y) {
        for (int x = 0; x < 60; ++x) {
            if (image.pixel(x, y) != qRgb(255, 255, 255))
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

} // namespace

class tst_frmSpecialCharacters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsEveryCode();
    void arrowsMoveAndShow();
    void typedKeysMove_data();
    void typedKeysMove();
    void enterAndDoubleClickCollect();
    void cellReplacesSelection();
    void sampleShowsCollected();
    void insertHandsOver();
    void cancelEmpties();
    void startsWithTransferText();
    void fillsTheScreenAndUsesTheFont();
    void cellsCanBeRead();
    void tabLeavesTheGrid();
    void signsAreDrawnInTheirPlace();
};

void tst_frmSpecialCharacters::showsEveryCode()
{
    Picker picker;
    picker.open();
    const QAbstractItemModel &model = *picker.grid().model();
    QCOMPARE(model.rowCount(), 7);
    QCOMPARE(model.columnCount(), 32);
    for (int code = 32; code < 256; ++code)
        QCOMPARE(model.index((code - 32) / 32, code % 32).data().toString(),
                 QString(QChar(codePageCharacter(uchar(code)))));
    QCOMPARE(picker.dialog->windowTitle(), u"Special Characters"_qs);
}

void tst_frmSpecialCharacters::arrowsMoveAndShow()
{
    Picker picker;
    picker.open();
    QVERIFY(picker.grid().hasFocus());
    QTest::keyClick(&picker.grid(), Qt::Key_Right);
    QTest::keyClick(&picker.grid(), Qt::Key_Down);
    QCOMPARE(picker.get<QLabel>("lblCharacter").text(), u"Selected character: A (# 65)"_qs);
    QCOMPARE(picker.sample(), u"A"_qs);
    picker.go(3, 0);
    QCOMPARE(picker.get<QLabel>("lblCharacter").text(), u"Selected character: € (# 128)"_qs);
    picker.go(0, 6);
    QCOMPARE(picker.get<QLabel>("lblCharacter").text(), u"Selected character: && (# 38)"_qs);
    QVERIFY(picker.get<QLabel>("lblCharacter").buddy() == &picker.grid());
    picker.go(0, 5);
    QCOMPARE(picker.get<QLabel>("lblCharacter").text(), u"Selected character: % (# 37)"_qs);
}

void tst_frmSpecialCharacters::typedKeysMove_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::newRow("A") << u"A"_qs << 1 << 1;
    QTest::newRow("space") << u" "_qs << 0 << 0;
    QTest::newRow("euro") << u"€"_qs << 3 << 0;
    QTest::newRow("last") << u"ÿ"_qs << 6 << 31;
    QTest::newRow("outside the code page") << u"Ж"_qs << 2 << 2;
    QTest::newRow("control") << u"\x01"_qs << 2 << 2;
}

void tst_frmSpecialCharacters::typedKeysMove()
{
    QFETCH(QString, typed);
    Picker picker;
    picker.open();
    picker.go(2, 2);
    QTest::sendKeyEvent(QTest::Click, &picker.grid(), Qt::Key_unknown, typed, {});
    QTEST(picker.grid().currentIndex().row(), "row");
    QTEST(picker.grid().currentIndex().column(), "column");
    QCOMPARE(picker.box().text(), QString());
}

void tst_frmSpecialCharacters::enterAndDoubleClickCollect()
{
    Picker picker;
    picker.open();
    picker.go(2, 20);
    QTest::keyClick(&picker.grid(), Qt::Key_Return);
    QTest::keyClick(&picker.grid(), Qt::Key_Enter);
    QCOMPARE(picker.box().text(), u"tt"_qs);
    const QPoint cell = picker.grid().visualRect(picker.grid().model()->index(0, 5)).center();
    QTest::mouseClick(picker.grid().viewport(), Qt::LeftButton, {}, cell);
    QCOMPARE(picker.box().text(), u"tt"_qs);
    QTest::mouseDClick(picker.grid().viewport(), Qt::LeftButton, {}, cell);
    QCOMPARE(picker.box().text(), u"tt%"_qs);
    picker.box().setCursorPosition(1);
    QTest::keyClick(&picker.grid(), Qt::Key_Return);
    QCOMPARE(picker.box().text(), u"t%t%"_qs);
    QVERIFY(picker.dialog->isVisible());
}

void tst_frmSpecialCharacters::cellReplacesSelection()
{
    Picker picker;
    picker.state.TransferText = u"abcd"_qs;
    picker.open();
    picker.box().setFocus();
    QTRY_COMPARE(picker.box().selectedText(), u"abcd"_qs);
    picker.box().setSelection(1, 2);
    picker.grid().setFocus();
    QTRY_COMPARE(picker.box().selectedText(), u"bc"_qs);
    picker.go(0, 1);
    QTest::keyClick(&picker.grid(), Qt::Key_Return);
    QCOMPARE(picker.box().text(), u"a!d"_qs);
}

void tst_frmSpecialCharacters::sampleShowsCollected()
{
    Picker picker;
    picker.open();
    picker.go(0, 1);
    QCOMPARE(picker.sample(), u"!"_qs);
    QTest::keyClick(&picker.grid(), Qt::Key_Return);
    QTest::keyClick(&picker.grid(), Qt::Key_Return);
    QCOMPARE(picker.sample(), u"!!"_qs);
    QTest::keyClick(&picker.grid(), Qt::Key_Right);
    QCOMPARE(picker.sample(), u"\""_qs);
}

void tst_frmSpecialCharacters::insertHandsOver()
{
    Picker picker;
    picker.open();
    picker.go(4, 13); // U+00AD
    QTest::keyClick(&picker.grid(), Qt::Key_Return);
    QTest::keyClick(&picker.box(), Qt::Key_Return);
    QVERIFY(!picker.dialog->isVisible());
    QCOMPARE(picker.state.TransferText, u"\u00AD"_qs);
    picker.open();
    QTest::mouseClick(&picker.get<QPushButton>("cmdOK"), Qt::LeftButton);
    QCOMPARE(picker.state.TransferText, u"\u00AD"_qs);
}

void tst_frmSpecialCharacters::cancelEmpties()
{
    Picker picker;
    picker.state.TransferText = u"ab"_qs;
    picker.open();
    QTest::mouseClick(&picker.get<QPushButton>("cmdCancel"), Qt::LeftButton);
    QVERIFY(!picker.dialog->isVisible());
    QCOMPARE(picker.state.TransferText, QString());
    picker.state.TransferText = u"ab"_qs;
    picker.open();
    QTest::keyClick(&picker.grid(), Qt::Key_Escape);
    QVERIFY(!picker.dialog->isVisible());
    QCOMPARE(picker.state.TransferText, QString());
}

void tst_frmSpecialCharacters::startsWithTransferText()
{
    Picker picker;
    picker.state.TransferText = u"a\r\nb"_qs;
    picker.open();
    QCOMPARE(picker.box().text(), u"a\r\nb"_qs);
    QTest::mouseClick(&picker.get<QPushButton>("cmdOK"), Qt::LeftButton);
    QCOMPARE(picker.state.TransferText, u"a\r\nb"_qs);
}

void tst_frmSpecialCharacters::fillsTheScreenAndUsesTheFont()
{
    Picker picker;
    picker.state.TransferValue = u"Some Tengwar"_qs;
    picker.open();
    QCOMPARE(picker.dialog->width(), picker.dialog->screen()->availableGeometry().width() - 8);
    for (const char *name : {"grdChars", "lblSample", "txtCharacters"})
        QCOMPARE(picker.get<QWidget>(name).font().family(), u"Some Tengwar"_qs);
    // The columns share the width, so that every character can be seen.
    const QModelIndex last = picker.grid().model()->index(6, 31);
    QVERIFY(picker.grid().viewport()->rect().contains(picker.grid().visualRect(last)));
    auto &insert = picker.get<QPushButton>("cmdOK");
    QVERIFY(picker.dialog->width() - insert.geometry().right() < 20);
}

void tst_frmSpecialCharacters::cellsCanBeRead()
{
    Picker picker;
    picker.open();
    const QAbstractItemModel &model = *picker.grid().model();
    QCOMPARE(model.index(1, 4).data(Qt::AccessibleTextRole).toString(), u"D (# 68)"_qs);
    QAccessibleInterface *grid = QAccessible::queryAccessibleInterface(&picker.grid());
    QVERIFY(grid != nullptr && grid->tableInterface() != nullptr);
    QCOMPARE(grid->text(QAccessible::Name), u"Characters of the font"_qs);
    QCOMPARE(grid->tableInterface()->cellAt(1, 4)->text(QAccessible::Name), u"D (# 68)"_qs);
}

void tst_frmSpecialCharacters::tabLeavesTheGrid()
{
    Picker picker;
    picker.open();
    for (const char *next : {"txtCharacters", "cmdOK", "cmdCancel", "grdChars"}) {
        QTest::keyClick(picker.dialog->focusWidget(), Qt::Key_Tab);
        QVERIFY2(picker.get<QWidget>(next).hasFocus(), next);
    }
    QTest::keyClick(picker.dialog.get(), Qt::Key_C, Qt::AltModifier);
    QVERIFY(picker.box().hasFocus());
}

void tst_frmSpecialCharacters::signsAreDrawnInTheirPlace()
{
    const int id = QFontDatabase::addApplicationFont(
        QStringLiteral(QUILLON_PROGRAM_FOLDER "/Fonts/TengwarQuillon-Regular.otf"));
    QVERIFY(id >= 0);
    const QFont font(QFontDatabase::applicationFontFamilies(id).constFirst());
    const QRect place(4, 4, 52, 52); // with a pixel for smoothed edges
    for (int code = 33; code < 256; ++code) {
        const QChar sign = codePageCharacter(uchar(code));
        const QRect ink = inkOf(font, sign);
        QVERIFY2(ink.isEmpty() || place.contains(ink), qPrintable(QString::number(code)));
        // Of a code that the font leaves unassigned nothing need be seen, U+00AD is a sign of it.
        QVERIFY2(!ink.isEmpty() || !sign.isPrint() || code == 160,
                 qPrintable(QString::number(code)));
    }
    QVERIFY(inkOf(font, u' ').isEmpty());
    QVERIFY(!inkOf(font, u'\u00AD').isEmpty());
    // A vowel mark alone is small and high up; its circle reaches down to the line.
    const QRect letter = inkOf(font, u'n');
    for (const QChar mark : {u'D', u'F', u'T'})
        QVERIFY(std::abs(inkOf(font, mark).bottom() - letter.bottom()) <= 2);
}

QTEST_MAIN(tst_frmSpecialCharacters)
#include "tst_frmspecialcharacters.moc"
