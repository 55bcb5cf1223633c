#include "search/frmFind.h"

#include "search/FindWindow.h"
#include "support/MessageBoxes.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTextBlock>

namespace {

const QString Wrap = u"The search has reached the end of the document. "
                     u"Do you wish to continue from the top?"_qs;
const QString NotFound = u"Search string was not found!"_qs;

} // namespace

class tst_frmFind : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void opensForTheActivePane();
    void opensWithReplace();
    void openDialogComesToTheFront();
    void enterFindsAndFindsOn();
    void matchStaysVisible_data();
    void matchStaysVisible();
    void flags_data();
    void flags();
    void wraps();
    void answersNo();
    void notFoundFromTheStart();
    void tengwarSearchIsExact();
    void tengwarBoxesAreRefilled();
    void softHyphenIsAShownLetter();
    void brokenModeKeepsTengwarBoxes();
    void refillClearsAbort();
    void lineBreaksAreFound();
    void replacesAndFindsOn();
    void replacesTheSelectionUnchecked();
    void searchesThePaneOfTheMoment();
    void mnemonicsAndNames();
};

void tst_frmFind::opensForTheActivePane()
{
    FindWindow window;
    window.source.setText(u"some roman"_qs);
    window.target.setText(u"t2%j"_qs);
    window.source.setSelLength(4);
    window.target.setSelLength(2);
    window.commands.showFind();
    QVERIFY(window.dialog().isVisible());
    QVERIFY(!window.dialog().isModal());
    QCOMPARE(window.dialog().windowTitle(), u"Find"_qs);
    QCOMPARE(window.get<QLineEdit>("txtRomanSearch").text(), u"some"_qs);
    QVERIFY(window.get<QRadioButton>("optRomanSearch").isChecked());
    QVERIFY(!window.get<QGroupBox>("fraReplaceWith").isVisible());
    QVERIFY(!window.get<QPushButton>("cmdReplace").isVisible());
    QCOMPARE(window.get<QPushButton>("cmdShowReplace").text(), u"<< &Show replace"_qs);
    QVERIFY(!window.state.TransferValue.isValid());

    QTest::keyClick(&window.dialog(), Qt::Key_Escape);
    QTRY_VERIFY(!window.isSearching());
    window.state.ActivePane = PaneCode::Target;
    window.commands.showFind();
    QCOMPARE(window.get<QLineEdit>("txtTengwarSearch").text(), u"t2"_qs);
    QCOMPARE(window.get<QLineEdit>("txtRomanSearch").text(), QString());
    QVERIFY(window.get<QRadioButton>("optTengwarSearch").isChecked());
    QVERIFY(!window.get<QCheckBox>("chkCase").isEnabled());
}

void tst_frmFind::opensWithReplace()
{
    FindWindow window;
    window.commands.showReplace();
    QVERIFY(window.get<QGroupBox>("fraReplaceWith").isVisible());
    QVERIFY(!window.get<QPushButton>("cmdReplace").isEnabled());
    QVERIFY(window.get<QPushButton>("cmdReplaceAll").isEnabled());
    QCOMPARE(window.get<QPushButton>("cmdShowReplace").text(), u">> &Hide replace"_qs);
    const auto topOfOptions = [&] {
        auto &options = window.get<QGroupBox>("fraOptions");
        QTest::qWait(0);
        return options.mapTo(&window.dialog(), QPoint()).y();
    };
    const int below = topOfOptions();
    window.click("cmdShowReplace");
    QVERIFY(!window.get<QGroupBox>("fraReplaceWith").isVisible());
    QVERIFY(!window.get<QPushButton>("cmdReplaceAll").isVisible());
    QCOMPARE(window.get<QPushButton>("cmdShowReplace").text(), u"<< &Show replace"_qs);
    QVERIFY(topOfOptions() < below);
}

void tst_frmFind::openDialogComesToTheFront()
{
    FindWindow window;
    window.source.setText(u"abc"_qs);
    window.source.setSelLength(1);
    window.commands.showFind();
    frmFind *opened = &window.dialog();
    window.source.setSelLength(2);
    window.activateWindow();
    window.commands.showReplace();
    QCOMPARE(&window.dialog(), opened);
    QCOMPARE(window.get<QLineEdit>("txtRomanSearch").text(), u"a"_qs);
    QVERIFY(window.get<QGroupBox>("fraReplaceWith").isVisible());
    window.commands.showReplace();
    QVERIFY(window.get<QGroupBox>("fraReplaceWith").isVisible());
    QTRY_COMPARE(QApplication::activeWindow(), opened);
    window.click("cmdClose");
    QTRY_VERIFY(!window.isSearching());
}

void tst_frmFind::enterFindsAndFindsOn()
{
    FindWindow window;
    window.source.setText(u"x ab ab ab"_qs);
    window.commands.showFind();
    window.type("txtRomanSearch", u"ab"_qs);
    for (const int expected : {2, 5, 8}) {
        QTest::keyClick(&window.get<QLineEdit>("txtRomanSearch"), Qt::Key_Return);
        QCOMPARE(window.source.SelStart(), expected);
        QCOMPARE(window.source.SelText(), u"ab"_qs);
    }
}

void tst_frmFind::matchStaysVisible_data()
{
    QTest::addColumn<int>("line");
    QTest::addColumn<double>("height"); // of the match, in the dialog's
    QTest::addColumn<int>("tallness");  // of the dialog, in pixels
    QTest::addColumn<int>("side");      // to which it must move: up, not at all, down
    QTest::newRow("covered") << 8 << 0.5 << 0 << 1;
    QTest::newRow("covered, with no room below") << 33 << 0.5 << 0 << -1;
    QTest::newRow("above the dialog") << 8 << -0.5 << 0 << 0;
    QTest::newRow("below the dialog") << 30 << 1.5 << 0 << 0;
    QTest::newRow("covered by a tall dialog") << 12 << 0.5 << 700 << 0;
}

/// Wherever the dialog stands, what it finds is not hidden by it.
void tst_frmFind::matchStaysVisible()
{
    QFETCH(int, line);
    QFETCH(double, height);
    QFETCH(int, tallness);
    QFETCH(int, side);
    FindWindow window;
    window.setGeometry(0, 200, 700, 590);
    QStringList lines(35, u"some words"_qs);
    lines[line] = u"here it is"_qs;
    window.source.setText(lines.join(u"\r\n"_qs));
    window.commands.showFind();
    frmFind &dialog = window.dialog();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    if (tallness > 0)
        dialog.resize(dialog.width(), tallness);
    QTRY_COMPARE(window.height(), 590);
    QTextCursor place(window.source.document()->findBlockByNumber(line));
    const auto onScreen = [&](const QRect &rect) {
        return QRect(window.source.viewport()->mapToGlobal(rect.topLeft()), rect.size());
    };
    const int matchTop = onScreen(window.source.cursorRect(place)).top();
    dialog.move(0, matchTop - int(height * dialog.frameGeometry().height()));
    const int top = dialog.frameGeometry().top();

    window.type("txtRomanSearch", u"it"_qs);
    QTest::keyClick(&window.get<QLineEdit>("txtRomanSearch"), Qt::Key_Return);
    QCOMPARE(window.source.SelText(), u"it"_qs);
    const QRect match = window.source.cursorRect();
    QVERIFY(window.source.viewport()->rect().contains(match));
    QVERIFY(!dialog.frameGeometry().intersects(onScreen(match)));
    const int newTop = dialog.frameGeometry().top();
    QCOMPARE(int(newTop > top) - int(newTop < top), side);
}

void tst_frmFind::flags_data()
{
    QTest::addColumn<bool>("matchCase");
    QTest::addColumn<bool>("wholeWord");
    QTest::addColumn<int>("found");
    QTest::newRow("none") << false << false << 2;
    QTest::newRow("case") << true << false << 6;
    QTest::newRow("word") << false << true << 11;
    QTest::newRow("both") << true << true << 14;
}

void tst_frmFind::flags()
{
    QFETCH(bool, matchCase);
    QFETCH(bool, wholeWord);
    FindWindow window;
    window.source.setText(u". ABs abs1 AB-ab_"_qs);
    window.commands.showFind();
    window.type("txtRomanSearch", u"ab"_qs);
    if (matchCase)
        window.click("chkCase");
    if (wholeWord)
        window.click("chkWord");
    window.click("cmdFind");
    QTEST(window.source.SelStart(), "found");
}

void tst_frmFind::wraps()
{
    FindWindow window;
    window.source.setText(u"ab ab xx"_qs);
    window.source.setSelStart(6);
    window.commands.showFind();
    window.type("txtRomanSearch", u"ab"_qs);
    MessageBoxes boxes({QMessageBox::Yes});
    window.click("cmdFind");
    QCOMPARE(int(boxes.seen().size()), 1);
    QCOMPARE(boxes.seen()[0].text, Wrap);
    QCOMPARE(boxes.seen()[0].title, u"Search"_qs);
    QCOMPARE(boxes.seen()[0].buttons, QMessageBox::Yes | QMessageBox::No);
    // Not the match at the very start.
    QCOMPARE(window.source.SelStart(), 3);
}

void tst_frmFind::answersNo()
{
    FindWindow window;
    window.source.setText(u"ab xx"_qs);
    window.source.setSelStart(4);
    window.commands.showReplace();
    window.type("txtRomanSearch", u"ab"_qs);
    MessageBoxes boxes({QMessageBox::No, QMessageBox::Ok, QMessageBox::Yes, QMessageBox::Ok});
    window.click("cmdFind");
    QCOMPARE(int(boxes.seen().size()), 2);
    QCOMPARE(boxes.seen()[1].text, NotFound);
    QCOMPARE(boxes.seen()[1].title, u"Finished search"_qs);
    QCOMPARE(boxes.seen()[1].icon, QMessageBox::Warning);
    // After a wrap that finds nothing, the same end.
    window.click("cmdFind");
    QCOMPARE(int(boxes.seen().size()), 4);
    QCOMPARE(boxes.seen()[2].text, Wrap);
    QCOMPARE(boxes.seen()[3].text, NotFound);
    QCOMPARE(window.source.SelStart(), 4);
    QVERIFY(!window.get<QPushButton>("cmdReplace").isEnabled());
}

void tst_frmFind::notFoundFromTheStart()
{
    FindWindow window;
    window.source.setText(u"ab"_qs);
    window.commands.showFind();
    window.type("txtRomanSearch", u"ab"_qs);
    MessageBoxes boxes;
    window.click("cmdFind");
    QCOMPARE(int(boxes.seen().size()), 1);
    QCOMPARE(boxes.seen()[0].text, NotFound);
}

void tst_frmFind::tengwarSearchIsExact()
{
    FindWindow window;
    window.target.setText(u"_Qq1 qs Q1q"_qs);
    window.state.ActivePane = PaneCode::Target;
    window.commands.showFind();
    window.click("optRomanSearch");
    window.click("chkWord");
    window.click("optTengwarSearch");
    window.type("txtTengwarSearch", u"q"_qs);
    // Q is another sign, and there are no words.
    for (const int expected : {2, 5, 10}) {
        window.click("cmdFind");
        QCOMPARE(window.target.SelStart(), expected);
    }
}

void tst_frmFind::tengwarBoxesAreRefilled()
{
    FindWindow window;
    window.commands.showReplace();
    auto &roman = window.get<QLineEdit>("txtRomanSearch");
    auto &tengwar = window.get<QLineEdit>("txtTengwarSearch");
    window.type("txtRomanSearch", u"ab"_qs);
    QCOMPARE(tengwar.text(), QString());
    window.click("optTengwarSearch");
    QCOMPARE(tengwar.text(), u"1q"_qs);
    QVERIFY(!window.get<QGroupBox>("fraOptions").isEnabled());
    roman.setFocus();
    roman.end(false);
    QTest::keyClick(&roman, Qt::Key_A);
    QCOMPARE(tengwar.text(), u"1q1"_qs);
    // What was found in the pane is not lost to an empty roman box.
    roman.clear();
    QTest::keyClick(&roman, Qt::Key_Tab);
    QCOMPARE(tengwar.text(), u"1q1"_qs);

    window.type("txtRomanReplace", u"b"_qs);
    window.click("optTengwarReplace");
    QCOMPARE(window.get<QLineEdit>("txtTengwarReplace").text(), u"q"_qs);
    QTest::keyClick(&window.get<QLineEdit>("txtRomanReplace"), Qt::Key_B);
    QCOMPARE(window.get<QLineEdit>("txtTengwarReplace").text(), u"qq"_qs);

    window.click("optRomanSearch");
    QVERIFY(window.get<QGroupBox>("fraOptions").isEnabled());
    QVERIFY(window.get<QCheckBox>("chkWord").isEnabled());
}

void tst_frmFind::softHyphenIsAShownLetter()
{
    const int id = QFontDatabase::addApplicationFont(u"" QUILLON_PROGRAM_FOLDER
                                                     "/Fonts/TengwarQuillon-Regular.otf"_qs);
    FindWindow window;
    window.state.Settings.GenericTengwarFont = QFontDatabase::applicationFontFamilies(id).value(0);
    window.target.setText(u"q1\xADq \xAD"_qs);
    window.target.setSelStart(2);
    window.target.setSelLength(2);
    window.state.ActivePane = PaneCode::Target;
    window.commands.showReplace();
    const auto &sought = window.get<QLineEdit>("txtTengwarSearch");
    QVERIFY(!sought.text().contains(u'\u00AD')); // which would be invisible
    window.target.setSelStart(0);
    window.click("cmdFind");
    QCOMPARE(window.target.SelText(), u"\xADq"_qs);
    window.click("optTengwarReplace");
    window.type("txtTengwarReplace", u"\xAD"_qs);
    window.click("cmdReplaceAll");
    QCOMPARE(window.target.Text(), u"q1\xAD \xAD"_qs);
}

void tst_frmFind::brokenModeKeepsTengwarBoxes()
{
    FindWindow window;
    window.commands.showFind();
    window.type("txtRomanSearch", u"a"_qs);
    window.click("optTengwarSearch");
    QCOMPARE(window.get<QLineEdit>("txtTengwarSearch").text(), u"1"_qs);
    const MessageBoxes boxes;
    window.folder.add(u"Test"_qs, "no header");
    window.type("txtRomanSearch", u"b"_qs);
    QVERIFY(QFile::remove(window.folder.path(u"Test.mod"_qs)));
    window.type("txtRomanSearch", u"bb"_qs);
    QCOMPARE(window.get<QLineEdit>("txtTengwarSearch").text(), u"1"_qs);
    QVERIFY(boxes.seen().empty());
}

void tst_frmFind::refillClearsAbort()
{
    FindWindow window;
    window.state.Settings.UndefinedText = u"?"_qs;
    window.state.Settings.UndefinedAlert = true;
    window.commands.showFind();
    window.type("txtRomanSearch", u"ax"_qs);
    const MessageBoxes boxes;
    window.state.AbortRequested = true;
    window.click("optTengwarSearch");
    QCOMPARE(window.get<QLineEdit>("txtTengwarSearch").text(), u"1?"_qs);
    QVERIFY(!window.state.AbortRequested);
    // A transcription that is to be aborted meanwhile still is.
    window.isTranscribing = true;
    window.state.AbortRequested = true;
    window.type("txtRomanSearch", u"b"_qs);
    QCOMPARE(window.get<QLineEdit>("txtTengwarSearch").text(), u"q"_qs);
    QVERIFY(window.state.AbortRequested);
    QVERIFY(boxes.seen().empty());
}

void tst_frmFind::lineBreaksAreFound()
{
    FindWindow window;
    window.source.setText(u"x\r\ny\r\nz"_qs);
    window.source.setSelStart(4);
    window.source.setSelLength(2);
    QCOMPARE(window.source.SelText(), u"\r\n"_qs);
    window.commands.showReplace();
    window.source.setSelStart(0);
    window.type("txtRomanReplace", u"-"_qs);
    window.click("cmdFind");
    QCOMPARE(window.source.SelStart(), 1);
    window.click("cmdReplaceAll");
    QCOMPARE(window.source.Text(), u"x-y-z"_qs);
}

void tst_frmFind::replacesAndFindsOn()
{
    FindWindow window;
    window.source.setText(u" ab ab ab"_qs);
    window.openReplace(u"ab"_qs, u"c"_qs);
    window.click("cmdFind");
    window.click("cmdReplace");
    QCOMPARE(window.source.Text(), u" c ab ab"_qs);
    QCOMPARE(window.source.SelStart(), 3);
    QCOMPARE(window.source.SelText(), u"ab"_qs);
}

void tst_frmFind::replacesTheSelectionUnchecked()
{
    FindWindow window;
    window.source.setText(u"xyz ab ab"_qs);
    window.commands.showReplace();
    window.type("txtRomanSearch", u"ab"_qs);
    window.click("cmdFind");
    window.source.setSelStart(0);
    window.source.setSelLength(3);
    window.type("txtRomanReplace", u"b"_qs);
    window.click("optTengwarReplace");
    window.click("cmdReplace");
    QCOMPARE(window.source.Text(), u"q ab ab"_qs);
    QCOMPARE(window.source.SelStart(), 2);
}

void tst_frmFind::searchesThePaneOfTheMoment()
{
    FindWindow window;
    window.source.setText(u" ab"_qs);
    window.target.setText(u"  ab"_qs);
    window.commands.showFind();
    window.type("txtRomanSearch", u"ab"_qs);
    window.click("cmdFind");
    QCOMPARE(window.source.SelStart(), 1);
    window.state.ActivePane = PaneCode::Target;
    window.click("cmdFind");
    QCOMPARE(window.target.SelStart(), 2);
    window.state.ActivePane = PaneCode::None;
    const MessageBoxes boxes;
    window.click("cmdFind");
    QVERIFY(boxes.seen().empty());
}

void tst_frmFind::mnemonicsAndNames()
{
    FindWindow window;
    window.commands.showReplace();
    QSet<QString> keys;
    for (const auto *button : window.dialog().findChildren<QAbstractButton *>()) {
        if (button->shortcut().isEmpty())
            continue;
        QVERIFY2(!keys.contains(button->shortcut().toString()), qPrintable(button->text()));
        keys += button->shortcut().toString();
    }
    for (const QLineEdit *box : window.dialog().findChildren<QLineEdit *>())
        QVERIFY2(!box->accessibleName().isEmpty(), qPrintable(box->objectName()));
    QVERIFY(window.get<QPushButton>("cmdFind").isDefault());
}

QTEST_MAIN(tst_frmFind)
#include "tst_frmfind.moc"
