#include "app/Splitter.h"
#include "app/ToolbarCombo.h"
#include "platform/RichTextBox.h"
#include "support/FileDialogs.h"
#include "support/PrintDialogs.h"
#include "support/ProgramFixture.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Keys as they come from the keyboard: to whatever has the focus.
void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
{
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

void type(const QString &text)
{
    QTest::keyClicks(QApplication::focusWidget(), text);
}

void press(int times, Qt::Key key, Qt::KeyboardModifiers modifiers = {})
{
    while (times-- > 0)
        press(key, modifiers);
}

} // namespace

/// The program used without a mouse.
class tst_Keyboard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void f6GoesRound();
    void f6PassesHiddenToolbars();
    void largerAndSmallerWithoutToolbar();
    void largerAndSmallerOnMixedSizes();
    void aLetterFromFirstWordToFinishedPage_data();
    void aLetterFromFirstWordToFinishedPage();
    void escInTheWindowEndsReplaceAll();
};

void tst_Keyboard::f6GoesRound()
{
    const ProgramFixture fixture;
    const FormControls &controls = fixture.form().controls();
    const std::vector<QWidget *> stops = {controls.cboModeName, controls.cboFontName,
                                          controls.cboFontSize, controls.imgRuler,
                                          controls.rtbRoman};
    QVERIFY(controls.rtbRoman->hasFocus());
    for (QWidget *stop : stops) {
        press(Qt::Key_F6);
        QVERIFY2(stop->hasFocus(), qPrintable(stop->objectName()));
    }
    for (auto stop = stops.rbegin() + 1; stop != stops.rend(); ++stop) {
        press(Qt::Key_F6, Qt::ShiftModifier);
        QVERIFY2((*stop)->hasFocus(), qPrintable((*stop)->objectName()));
    }
    press(Qt::Key_F6, Qt::ShiftModifier);
    QVERIFY(controls.rtbRoman->hasFocus());
    // It is no typing, which would record an undo state.
    QVERIFY(!fixture.form().commands().action("mnuEUndo"_L1).isEnabled());
}

void tst_Keyboard::f6PassesHiddenToolbars()
{
    const ProgramFixture fixture;
    const FormControls &controls = fixture.form().controls();
    fixture.form().commands().action("mnuVFormattingToolbar"_L1).trigger();
    press(Qt::Key_F6);
    QVERIFY(controls.cboModeName->hasFocus());
    press(Qt::Key_F6);
    QVERIFY(controls.imgRuler->hasFocus());
    press(Qt::Key_F6);
    QVERIFY(controls.rtbRoman->hasFocus());
    fixture.form().commands().action("mnuVStandardToolbar"_L1).trigger();
    press(Qt::Key_F6);
    QVERIFY(controls.imgRuler->hasFocus());
    press(Qt::Key_F6);
    QVERIFY(controls.rtbRoman->hasFocus());
}

void tst_Keyboard::largerAndSmallerWithoutToolbar()
{
    const ProgramFixture fixture;
    const RichTextBox &pane = *fixture.form().controls().rtbRoman;
    const double size = pane.SelFormat().fontSize.value();
    type(u"abc"_s);
    press(Qt::Key_A, Qt::ControlModifier);
    fixture.form().commands().action("mnuVFormattingToolbar"_L1).trigger();
    press(2, Qt::Key_Plus, Qt::ControlModifier);
    QCOMPARE(pane.SelFormat().fontSize, size + 4);
    press(Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(pane.SelFormat().fontSize, size + 2);
    QCOMPARE(pane.Text(), u"abc"_s);
    const QAction &larger = fixture.form().commands().action("tbrFormat.FormatLarger"_L1);
    QCOMPARE(larger.toolTip(), u"Larger (Ctrl++)"_s);
}

void tst_Keyboard::largerAndSmallerOnMixedSizes()
{
    const ProgramFixture fixture;
    RichTextBox &pane = *fixture.form().controls().rtbRoman;
    const double size = pane.SelFormat().fontSize.value();
    pane.setText(u"abc"_s);
    pane.setSelLength(1);
    pane.setSelFontSize(size + 2);
    pane.setSelLength(3);
    const QByteArray before = pane.TextRTF();
    for (const Qt::Key key : {Qt::Key_Plus, Qt::Key_Minus}) {
        press(key, Qt::ControlModifier);
        press(key, Qt::ControlModifier | Qt::ShiftModifier);
        press(key, Qt::ControlModifier | Qt::KeypadModifier);
    }
    QCOMPARE(pane.TextRTF(), before);
    QVERIFY(!fixture.form().commands().action("mnuEUndo"_L1).isEnabled());
    // Where the size is the same all over, the keys of the number pad do it too.
    pane.setSelFontSize(size);
    press(Qt::Key_Plus, Qt::ControlModifier | Qt::KeypadModifier);
    QCOMPARE(pane.SelFormat().fontSize, size + 2);
    press(2, Qt::Key_Minus, Qt::ControlModifier | Qt::KeypadModifier);
    QCOMPARE(pane.SelFormat().fontSize, size - 2);
    QCOMPARE(pane.Text(), u"abc"_s);
}

void tst_Keyboard::aLetterFromFirstWordToFinishedPage_data()
{
    QTest::addColumn<PaneCode>("code");
    QTest::newRow("source") << PaneCode::Source;
    QTest::newRow("target") << PaneCode::Target;
}

void tst_Keyboard::aLetterFromFirstWordToFinishedPage()
{
    QFETCH(PaneCode, code);
    const ProgramFixture fixture;
    const RichTextBox &pane = *fixture.form().pane(code);
    if (code == PaneCode::Target)
        press(Qt::Key_Tab, Qt::ControlModifier);
    QVERIFY(pane.hasFocus());

    press(2, Qt::Key_F6);
    type(u"DejaVu Serif"_s);
    press(Qt::Key_Return);
    QTRY_VERIFY(pane.hasFocus());
    press(3, Qt::Key_F6);
    type(u"20"_s);
    press(Qt::Key_Return);
    QTRY_VERIFY(pane.hasFocus());

    press(Qt::Key_E, Qt::ControlModifier);
    type(u"My dear"_s);
    press(Qt::Key_Return);
    press(Qt::Key_L, Qt::ControlModifier);
    press(Qt::Key_B, Qt::ControlModifier);
    type(u"news"_s);
    press(Qt::Key_B, Qt::ControlModifier);
    type(u" soon"_s);
    press(5, Qt::Key_Left, Qt::ShiftModifier);
    press(Qt::Key_I, Qt::ControlModifier);
    press(Qt::Key_X, Qt::ControlModifier);
    press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(pane.Text(), u"My dear\r\nnews soon"_s);

    const auto formatAt = [&pane](int position) {
        RichTextBox copy;
        copy.setDocument(pane.document()->clone(&copy));
        copy.setSelStart(position);
        copy.setSelLength(1);
        return copy.SelFormat();
    };
    QCOMPARE(formatAt(0).fontName, u"DejaVu Serif"_s);
    QCOMPARE(formatAt(0).fontSize, 20);
    QCOMPARE(formatAt(0).alignment, Alignment::Center);
    QCOMPARE(formatAt(9).alignment, Alignment::Left);
    QCOMPARE(formatAt(9).bold, true);
    QCOMPARE(formatAt(14).bold, false);
    QCOMPARE(formatAt(14).italic, true);

    const QTemporaryDir folder;
    const FileDialogs files({{folder.filePath(u"letter.rtf"_s)}});
    press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(files.seen().size(), 1);
    QVERIFY(QFile::exists(folder.filePath(u"letter.rtf"_s)));
    fixture.form().activateWindow(); // as a window manager would do
    QTRY_VERIFY(pane.hasFocus());
    const PrintDialogs printers(folder.filePath(u"letter.pdf"_s));
    press(Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(printers.count(), 1);
    QVERIFY(QFile::exists(folder.filePath(u"letter.pdf"_s)));
}

void tst_Keyboard::escInTheWindowEndsReplaceAll()
{
    const ProgramFixture fixture;
    const RichTextBox &pane = *fixture.form().controls().rtbRoman;
    type(u"a-b"_s);
    press(Qt::Key_H, Qt::ControlModifier);
    auto *dialog = fixture.form().findChild<QDialog *>(u"frmFind"_s);
    QTRY_VERIFY(dialog->findChild<QLineEdit *>(u"txtRomanSearch"_s)->hasFocus());
    type(u"a"_s);
    dialog->findChild<QLineEdit *>(u"txtRomanReplace"_s)->setFocus();
    type(u"A"_s); // found again, and again
    press(Qt::Key_A, Qt::AltModifier);
    const auto *progress = dialog->findChild<QLabel *>(u"lblProgress"_s);
    QTRY_VERIFY(!progress->text().isEmpty());
    fixture.form().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&fixture.form()));
    press(Qt::Key_Escape);
    QTRY_VERIFY(progress->text().isEmpty());
    QVERIFY(dialog->isVisible());
    QCOMPARE(pane.Text(), u"A-b"_s);
}

QTEST_MAIN(tst_Keyboard)
#include "tst_keyboard.moc"
