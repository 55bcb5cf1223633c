#include "app/ToolbarCombo.h"
#include "platform/RichTextBox.h"
#include "support/MessageBoxes.h"
#include "support/ModalDialog.h"
#include "support/ProgramFixture.h"

#include <QAbstractItemView>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QToolBar>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The program as its user sees and handles it.
class Desk : public ProgramFixture
{
public:
    [[nodiscard]] RichTextBox &source() const { return *form().controls().rtbRoman; }
    [[nodiscard]] RichTextBox &target() const { return *form().controls().rtbTengwar; }
    [[nodiscard]] QString panel() const { return form().controls().SelText->text(); }

    [[nodiscard]] bool canUndo() const
    {
        return form().commands().action("mnuEUndo"_L1).isEnabled();
    }

    /// Takes the last state back and tells whether none is left.
    [[nodiscard]] bool undoesAll(RichTextBox &pane) const
    {
        QTest::keyClick(&pane, Qt::Key_Z, Qt::ControlModifier);
        return !canUndo();
    }

    /// A pane with that text and nothing to undo.
    void fill(RichTextBox &pane, const QString &text) const
    {
        pane.setFocus();
        pane.setText(text);
    }

    /// Selects without keys, which would record a state.
    void select(RichTextBox &pane, int start, int length) const
    {
        pane.setSelStart(start);
        pane.setSelLength(length);
    }

    /// Clicks a button of the formatting toolbar.
    void click(QLatin1StringView action) const
    {
        QAction &button = form().commands().action(action);
        QTest::mouseClick(form().controls().tbrFormat->widgetForAction(&button), Qt::LeftButton);
    }

    /// Opens a menu by the mouse and goes on by the letters underlined in its captions; "." stands
    /// for Enter, where two captions have the same.
    void choose(QLatin1StringView menu, const QString &letters) const
    {
        QMenuBar &bar = *form().menuBar();
        QAction *title = form().findChild<QMenu *>(menu)->menuAction();
        QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(title).center());
        for (const QChar letter : letters) {
            QTRY_VERIFY(QApplication::activePopupWidget() != nullptr);
            const auto key = letter == u'.' ? Qt::Key_Return : Qt::Key(letter.toUpper().unicode());
            QTest::keyClick(QApplication::activePopupWidget(), key);
        }
        QTRY_VERIFY(QApplication::activePopupWidget() == nullptr);
    }
};

QClipboard &clipboard()
{
    return *QGuiApplication::clipboard();
}

} // namespace

/// Writing, searching and the tools, in the whole window by keys and mouse.
class tst_Writing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void superscriptsAddUpAndGo();
    void halfBoldBecomesBold();
    void selectionIsShown_data();
    void selectionIsShown();
    void fontInUseChosenAgain();
    void pasteBetweenPanes();
    void pasteOfAPicture();
    void keysThatRecord_data();
    void keysThatRecord();
    void wholeLinesAreFormatted();
    void glyphVariantsOfTheSelection();
    void glyphVariantsBeyondTheLimit();
    void unknownCharacterBeforeTheStart();
    void pixelsAreForgottenAtTheEnd();
};

void tst_Writing::superscriptsAddUpAndGo()
{
    const Desk desk;
    desk.fill(desk.source(), u"abc"_s);
    desk.select(desk.source(), 1, 1);
    desk.choose("mnuFormat"_L1, u"cp"_s);
    desk.choose("mnuFormat"_L1, u"cp"_s);
    QCOMPARE(desk.source().SelFormat().charOffset, 60);
    desk.choose("mnuFormat"_L1, u"cn"_s);
    QCOMPARE(desk.source().SelFormat().charOffset, 0);
    QVERIFY(!desk.undoesAll(desk.source()));
    QVERIFY(!desk.undoesAll(desk.source()));
    QVERIFY(desk.undoesAll(desk.source()));
}

void tst_Writing::halfBoldBecomesBold()
{
    const Desk desk;
    desk.fill(desk.source(), u"abcd"_s);
    desk.select(desk.source(), 0, 2);
    desk.click("tbrFormat.FormatBold"_L1);
    desk.select(desk.source(), 0, 4);
    QCOMPARE(desk.source().SelFormat().bold, std::nullopt);
    desk.click("tbrFormat.FormatBold"_L1);
    QCOMPARE(desk.source().SelFormat().bold, true);
}

void tst_Writing::selectionIsShown_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("shown");
    const QString text = u" bcdefghijklmnopqrstuvwxyz0123"_s;
    QTest::newRow("nothing") << 0 << QString();
    QTest::newRow("a space") << 1 << u"  (#32)"_s;
    QTest::newRow("29") << 29 << text.first(29);
    QTest::newRow("30") << 30 << text.first(29) + u'…';
}

void tst_Writing::selectionIsShown()
{
    QFETCH(int, length);
    const Desk desk;
    desk.fill(desk.source(), u" bcdefghijklmnopqrstuvwxyz0123456"_s);
    desk.select(desk.source(), 0, length);
    QTEST(desk.panel(), "shown");
}

void tst_Writing::fontInUseChosenAgain()
{
    const Desk desk;
    RichTextBox &pane = desk.source();
    desk.fill(pane, u"abc"_s);
    desk.select(pane, 0, 3);
    pane.setSelFontName(desk.form().controls().cboFontName->itemText(0));
    pane.setSelFontSize(desk.form().controls().cboFontSize->itemText(3).toInt());
    QVERIFY(!desk.canUndo());
    for (ToolbarCombo *list :
         {desk.form().controls().cboFontName, desk.form().controls().cboFontSize}) {
        const QString present = list->currentText();
        list->showPopup();
        QAbstractItemView &entries = *list->view();
        QTRY_VERIFY(entries.isVisible());
        QTest::keyClick(&entries, Qt::Key_Return);
        QTRY_VERIFY(!entries.isVisible());
        QTRY_VERIFY(pane.hasFocus());
        QCOMPARE(list->currentText(), present);
        QVERIFY(desk.canUndo());
        QVERIFY(desk.undoesAll(pane));
        desk.select(pane, 0, 3);
    }
}

void tst_Writing::pasteBetweenPanes()
{
    const Desk desk;
    desk.fill(desk.target(), u"1Rx"_s);
    const SelectionFormat there = desk.target().SelFormat();
    desk.fill(desk.source(), u"abc"_s);
    desk.select(desk.source(), 0, 3);
    desk.click("tbrFormat.FormatBold"_L1);
    desk.click("tbrFormat.FormatLarger"_L1);
    QVERIFY(desk.source().SelFormat().fontName != there.fontName);
    QTest::keyClick(&desk.source(), Qt::Key_C, Qt::ControlModifier);
    QTest::keyClick(&desk.source(), Qt::Key_Tab, Qt::ControlModifier);
    QVERIFY(desk.target().hasFocus());
    QTest::keyClick(&desk.target(), Qt::Key_End);
    QTest::keyClick(&desk.target(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(desk.target().Text(), u"1Rxabc"_s);
    QTest::keyClick(&desk.target(), Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(desk.target().SelFormat(), there);
}

void tst_Writing::pasteOfAPicture()
{
    const Desk desk;
    desk.fill(desk.source(), u"abc"_s);
    clipboard().setImage(QImage(2, 2, QImage::Format_RGB32));
    desk.select(desk.source(), 1, 1);
    QTest::keyClick(&desk.source(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(desk.source().Text(), u"ac"_s);
    QVERIFY(desk.undoesAll(desk.source()));
    QCOMPARE(desk.source().Text(), u"abc"_s);
}

void tst_Writing::keysThatRecord_data()
{
    QTest::addColumn<QString>("letters"); // of the menu
    QTest::addColumn<bool>("records");
    QTest::newRow("Cut") << u"c"_s << true;
    QTest::newRow("Copy") << u"o"_s << false;
    QTest::newRow("Paste") << u"p."_s << true;
    QTest::newRow("Clear") << u"e"_s << true;
    QTest::newRow("Select all") << u"a"_s << false;
}

/// With nothing selected and nothing to paste, too.
void tst_Writing::keysThatRecord()
{
    QFETCH(QString, letters);
    QFETCH(bool, records);
    const Desk desk;
    desk.fill(desk.source(), u"abc"_s);
    clipboard().clear();
    desk.choose("mnuEdit"_L1, letters);
    QCOMPARE(desk.canUndo(), records);
    QCOMPARE(desk.source().Text(), u"abc"_s);
    if (records)
        QVERIFY(desk.undoesAll(desk.source()));
}

/// A selection of whole lines ends at the start of the next one, which is none of them.
void tst_Writing::wholeLinesAreFormatted()
{
    const Desk desk;
    RichTextBox &pane = desk.source();
    desk.fill(pane, u"a\r\nb\r\nc"_s);
    const auto pick = [&] { desk.select(pane, 0, 6); };
    pick();
    QCOMPARE(pane.SelText(), u"a\r\nb\r\n"_s);
    desk.click("tbrFormat.CenterAlign"_L1);
    desk.click("tbrFormat.BulletedList"_L1);
    QVERIFY(desk.form().commands().action("tbrFormat.CenterAlign"_L1).isChecked());
    QVERIFY(desk.form().commands().action("tbrFormat.BulletedList"_L1).isChecked());
    const ModalDialog user("frmParagraph", [](QDialog &dialog) {
        auto *box = dialog.findChild<QLineEdit *>(u"txtRightIndent"_s);
        QCOMPARE(box->text(), u"0.0"_s);
        box->setText(u"10"_s);
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    desk.choose("mnuFormat"_L1, u"p"_s);
    QCOMPARE(user.uses(), 1);
    const SelectionFormat of = pane.SelFormat();
    QCOMPARE(of.rightIndent, 567);
    QTest::keyClick(&pane, Qt::Key_End, Qt::ControlModifier);
    QCOMPARE(pane.SelFormat().alignment, Alignment::Left);
    QCOMPARE(pane.SelFormat().bullet, false);
    QCOMPARE(pane.SelFormat().rightIndent, 0);
    QVERIFY(desk.form().commands().action("tbrFormat.LeftAlign"_L1).isChecked());
    pick();
    QCOMPARE(pane.SelFormat(), of);
}

void tst_Writing::glyphVariantsOfTheSelection()
{
    const Desk desk;
    RichTextBox &pane = desk.target();
    desk.fill(pane, u"pPpPp"_s);
    desk.select(pane, 1, 2);
    desk.choose("mnuTengwar"_L1, u"ls"_s);
    QCOMPARE(pane.Text(), u"p{[Pp"_s);
    QCOMPARE(pane.SelStart(), 1);
    QCOMPARE(pane.SelLength(), 2);
    QVERIFY(desk.undoesAll(pane));
    QCOMPARE(pane.Text(), u"pPpPp"_s);
}

void tst_Writing::glyphVariantsBeyondTheLimit()
{
    const Desk desk;
    const QString text(32'768, u'p');
    desk.fill(desk.target(), text);
    desk.select(desk.target(), 32'767, 1);
    const MessageBoxes boxes;
    desk.choose("mnuTengwar"_L1, u"ls"_s);
    QCOMPARE(boxes.seen().size(), 1U);
    QCOMPARE(boxes.seen()[0].text, u"Run-time error '6':\n\nOverflow"_s);
    QCOMPARE(desk.target().Text(), text);
    desk.select(desk.target(), 32'766, 1);
    desk.choose("mnuTengwar"_L1, u"ls"_s);
    QCOMPARE(boxes.seen().size(), 1U);
    QCOMPARE(desk.target().Text(), QString(text.first(32'766) + u"[p"_s));
}

void tst_Writing::unknownCharacterBeforeTheStart()
{
    const Desk desk;
    desk.program->state().Settings.UndefinedText = u"?"_s;
    desk.fill(desk.target(), u"?a?"_s);
    const MessageBoxes boxes;
    desk.choose("mnuTengwar"_L1, u"p"_s);
    QVERIFY(boxes.seen().empty());
    QCOMPARE(desk.target().SelLength(), 0);
    QTest::keyClick(&desk.target(), Qt::Key_End);
    desk.choose("mnuTengwar"_L1, u"p"_s);
    QCOMPARE(desk.target().SelText(), u"?"_s);
    QCOMPARE(desk.target().SelStart(), 2);
}

void tst_Writing::pixelsAreForgottenAtTheEnd()
{
    Desk desk;
    const ModalDialog preferences("frmPreferences", [](QDialog &dialog) {
        QTest::keyClick(dialog.findChild<QComboBox *>(u"cmbStandardUnit"_s), Qt::Key_End);
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    desk.choose("mnuEdit"_L1, u"pp."_s);
    QCOMPARE(preferences.uses(), 1);
    QString unit;
    const ModalDialog paragraph("frmParagraph", [&unit](QDialog &dialog) {
        unit = dialog.findChild<QLabel *>(u"lblUnit_0"_s)->text();
        dialog.reject();
    });
    desk.choose("mnuFormat"_L1, u"p"_s);
    QCOMPARE(unit, u"px"_s);
    desk.restart();
    QCOMPARE(desk.registry.settings.text(SettingKey::General, u"Unit"_s), u"px"_s);
    desk.choose("mnuFormat"_L1, u"p"_s);
    QCOMPARE(unit, u"mm"_s);
}

QTEST_MAIN(tst_Writing)
#include "tst_writing.moc"
