#include "platform/SoftHyphenEdit.h"

#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QLineEdit>
#include <QTest>

namespace {

/// A line edit in a font that has the sign also among the symbols.
class TengwarEdit : public QLineEdit
{
public:
    TengwarEdit()
    {
        const int id = QFontDatabase::addApplicationFont(u"" QUILLON_PROGRAM_FOLDER
                                                         "/Fonts/TengwarQuillon-Regular.otf"_qs);
        setFont(QFont(QFontDatabase::applicationFontFamilies(id).value(0), 20));
        showSoftHyphens(*this);
        show();
        setFocus();
    }
};

} // namespace

class tst_SoftHyphenEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isShown();
    void isGivenBack();
    void isUndone();
    void replacesTheSelection();
    void fontWithoutIt();
};

void tst_SoftHyphenEdit::isShown()
{
    TengwarEdit edit;
    QVERIFY(QTest::qWaitForWindowActive(&edit));
    edit.setText(u"z"_qs);
    const QImage alone = edit.grab().toImage();
    QTest::sendKeyEvent(QTest::Click, &edit, Qt::Key_unknown, u"\xAD"_qs, {});
    QCOMPARE(edit.cursorPosition(), 2);
    QCOMPARE(heldText(edit), u"z\xAD"_qs);
    QVERIFY(edit.grab().toImage() != alone);
}

void tst_SoftHyphenEdit::isGivenBack()
{
    TengwarEdit edit;
    QVERIFY(QTest::qWaitForWindowActive(&edit));
    QClipboard &clipboard = *QGuiApplication::clipboard();
    clipboard.setText(u"a\xAD"_qs);
    QTest::keyClick(&edit, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(heldText(edit), u"a\xAD"_qs);
    QTest::keyClick(&edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&edit, Qt::Key_X, Qt::ControlModifier);
    QTRY_COMPARE(clipboard.text(), u"a\xAD"_qs);
    QCOMPARE(heldText(edit), QString());
}

void tst_SoftHyphenEdit::isUndone()
{
    TengwarEdit edit;
    QVERIFY(QTest::qWaitForWindowActive(&edit));
    edit.setText(u"z"_qs);
    QTest::sendKeyEvent(QTest::Click, &edit, Qt::Key_unknown, u"\xAD"_qs, {});
    QCOMPARE(heldText(edit), u"z\xAD"_qs);
    QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(heldText(edit), u"z"_qs);
    QGuiApplication::clipboard()->setText(u"a\xAD"_qs);
    QTest::keyClick(&edit, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(heldText(edit), u"za\xAD"_qs);
    QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(heldText(edit), u"z"_qs);
    QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(heldText(edit), u"za\xAD"_qs);
    QVERIFY(!edit.text().contains(u'\u00AD'));
}

void tst_SoftHyphenEdit::replacesTheSelection()
{
    TengwarEdit edit;
    QVERIFY(QTest::qWaitForWindowActive(&edit));
    edit.setText(u"a\xAD\xAD\xAD z"_qs);
    edit.setSelection(1, 2);
    QTest::keyClick(&edit, Qt::Key_C, Qt::ControlModifier);
    QTRY_COMPARE(QGuiApplication::clipboard()->text(), u"\xAD\xAD"_qs);
    QCOMPARE(edit.selectionLength(), 2);
    QTest::sendKeyEvent(QTest::Click, &edit, Qt::Key_unknown, u"\xAD"_qs, {});
    QCOMPARE(heldText(edit), u"a\xAD\xAD z"_qs);
    QCOMPARE(edit.cursorPosition(), 2);
}

void tst_SoftHyphenEdit::fontWithoutIt()
{
    QLineEdit edit;
    edit.setFont(QFont(u"DejaVu Sans"_qs));
    showSoftHyphens(edit);
    edit.setText(u"a\xAD"_qs);
    QCOMPARE(edit.text(), u"a\xAD"_qs);
}

QTEST_MAIN(tst_SoftHyphenEdit)
#include "tst_softhyphenedit.moc"
