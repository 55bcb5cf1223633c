#include "search/frmFind.h"

#include "editor/SharedState.h"
#include "platform/RichTextBox.h"
#include "search/SearchCommands.h"
#include "support/MessageBoxes.h"
#include "support/ModeFolder.h"

#include <QCheckBox>
#include <QElapsedTimer>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>

namespace {

/// The two panes in a window, and the find dialog as its commands open it.
class FindWindow : public QWidget
{
public:
    FindWindow()
    {
        auto *layout = new QHBoxLayout(this);
        layout->addWidget(&source);
        layout->addWidget(&target);
        state.Settings.ModePath = folder.path();
        state.Settings.CurrentMode = u"Test"_qs;
        folder.add(u"Test"_qs, ModeBytes().rule("a", "1").rule("b", "q").bytes());
        state.ActivePane = PaneCode::Source;
        show();
    }

    [[nodiscard]] bool isSearching() const { return findChild<frmFind *>() != nullptr; }
    [[nodiscard]] frmFind &dialog() const { return *findChild<frmFind *>(); }

    template<typename Control> [[nodiscard]] Control &get(const char *name) const
    {
        return *dialog().findChild<Control *>(QLatin1String(name));
    }

    void click(const char *name)
    {
        auto &button = get<QAbstractButton>(name);
        QVERIFY2(button.isVisible() && button.isEnabled(), name);
        QTest::mouseClick(&button, Qt::LeftButton, {}, {8, button.height() / 2});
    }

    void type(const char *box, const QString &text)
    {
        auto &control = get<QLineEdit>(box);
        control.setFocus();
        control.selectAll();
        QTest::keyClick(&control, Qt::Key_Delete);
        for (const QChar character : text)
            QTest::sendKeyEvent(QTest::Click, &control, Qt::Key_unknown, QString(character), {});
    }

    ModeFolder folder;
    SharedState state;
    bool isTranscribing = false;
    RichTextBox source;
    RichTextBox target;
    SearchCommands commands{state, {source, target}, [this] { return isTranscribing; }, *this};
};

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
    void flags_data();
    void flags();
    void wraps();
    void answersNo();
    void notFoundFromTheStart();
    void tengwarSearchIsExact();
    void tengwarBoxesAreRefilled();
    void brokenModeKeepsTengwarBoxes();
    void refillClearsAbort();
    void lineBreaksAreFound();
    void replacesAndFindsOn();
    void replacesTheSelectionUnchecked();
    void replaceAllKeepsFormats();
    void replaceAllInTengwar();
    void tenThousandReplacements();
    void grownTextIsShownAtOnce();
    void endlessReplacementStaysAlive_data();
    void endlessReplacementStaysAlive();
    void growingBeyondTheLimit();
    void changedMeanwhile();
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
    window.commands.showReplace();
    window.type("txtRomanSearch", u"ab"_qs);
    window.type("txtRomanReplace", u"c"_qs);
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

void tst_frmFind::replaceAllKeepsFormats()
{
    FindWindow window;
    window.source.setText(u"ab AB ab"_qs);
    QTextCursor cursor(window.source.document());
    cursor.setPosition(3);
    cursor.setPosition(5, QTextCursor::KeepAnchor);
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    cursor.mergeCharFormat(bold);
    window.commands.showReplace();
    window.type("txtRomanSearch", u"ab"_qs);
    window.type("txtRomanReplace", u"xyz"_qs);
    const MessageBoxes boxes;
    window.click("cmdReplaceAll");
    QCOMPARE(window.source.Text(), u"xyz xyz xyz"_qs);
    for (int position = 1; position <= 11; ++position) {
        cursor.setPosition(position);
        QCOMPARE(cursor.charFormat().fontWeight() == QFont::Bold, position > 4 && position <= 7);
    }
    QCOMPARE(window.source.SelStart(), 11);
    QVERIFY(boxes.seen().empty());
    QCOMPARE(window.get<QLabel>("lblProgress").text(), QString());
}

void tst_frmFind::replaceAllInTengwar()
{
    FindWindow window;
    window.target.setText(u"1 1q Q 1Q"_qs);
    window.state.ActivePane = PaneCode::Target;
    window.commands.showReplace();
    window.type("txtRomanSearch", u"ab"_qs);
    window.type("txtRomanReplace", u"a"_qs);
    window.click("optTengwarReplace");
    window.click("cmdReplaceAll");
    QCOMPARE(window.target.Text(), u"1 1 Q 1Q"_qs);
}

void tst_frmFind::tenThousandReplacements()
{
    constexpr int Count = 10'666;
    constexpr int RunLength = 7; // so that runs end at, before and behind matches
    const auto sizeAt = [](int position) { return 8 + position / RunLength % 13; };
    FindWindow window;
    const QString text = u"a12"_qs.repeated(Count);
    QTextCursor cursor(window.source.document());
    cursor.beginEditBlock();
    for (int position = 0; position < text.size(); position += RunLength) {
        QTextCharFormat format;
        format.setFontPointSize(sizeAt(position));
        cursor.insertText(text.mid(position, RunLength), format);
    }
    cursor.endEditBlock();
    window.commands.showReplace();
    window.type("txtRomanSearch", u"a"_qs);
    window.type("txtRomanReplace", u"bc"_qs);
    QElapsedTimer clock;
    clock.start();
    window.click("cmdReplaceAll");
    QTRY_COMPARE(window.source.Text(), u"bc12"_qs.repeated(Count));
    QVERIFY2(clock.elapsed() < 3'000, qPrintable(u"%1 ms"_qs.arg(clock.elapsed())));
    int position = 0; // in the former text, four characters being three there
    const QTextBlock block = window.source.document()->firstBlock();
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        for (int i = 0; i < it.fragment().length(); ++i, ++position) {
            const int former = position / 4 * 3 + std::max(position % 4 - 1, 0);
            QCOMPARE(it.fragment().charFormat().fontPointSize(), double(sizeAt(former)));
        }
    }
    QCOMPARE(position, 4 * Count);
}

void tst_frmFind::grownTextIsShownAtOnce()
{
    constexpr int Letters = 200'000; // one word
    FindWindow window;
    window.source.setText(QString(Letters, u'a'));
    window.commands.showReplace();
    window.type("txtRomanSearch", u"a"_qs);
    window.type("txtRomanReplace", u"aa"_qs);
    window.click("cmdReplaceAll");
    const auto &progress = window.get<QLabel>("lblProgress");
    QTRY_VERIFY(!progress.text().isEmpty());
    const QString first = progress.text();
    QTRY_VERIFY(progress.text() != first);
    QElapsedTimer clock;
    clock.start();
    QTest::keyClick(window.dialog().focusWidget(), Qt::Key_Escape);
    QVERIFY2(clock.elapsed() < 10'000, qPrintable(u"%1 ms"_qs.arg(clock.elapsed())));
    QVERIFY(window.source.TextLength() > Letters);
    QCOMPARE(window.source.Text(), QString(window.source.TextLength(), u'a'));
}

void tst_frmFind::endlessReplacementStaysAlive_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("Esc in the dialog") << 0;
    QTest::newRow("Esc in the window") << 1;
    QTest::newRow("closing the dialog") << 2;
    QTest::newRow("closing the window") << 3;
}

void tst_frmFind::endlessReplacementStaysAlive()
{
    QFETCH(int, way);
    FindWindow window;
    window.source.setText(u"a-b"_qs);
    window.commands.showReplace();
    window.type("txtRomanSearch", u"a"_qs);
    window.type("txtRomanReplace", u"A"_qs);
    int served = 0;
    QTimer heartbeat;
    heartbeat.callOnTimeout([&] { ++served; });
    heartbeat.start(0);
    window.click("cmdReplaceAll");
    QTRY_VERIFY(served > 20);
    heartbeat.stop();
    QVERIFY(window.get<QLabel>("lblProgress").text().contains(u"replaced so far"_qs));
    QVERIFY(!window.get<QPushButton>("cmdFind").isEnabled());
    QVERIFY(!window.get<QLineEdit>("txtRomanSearch").isEnabled());
    switch (way) {
    case 0:
        QTest::keyClick(window.dialog().focusWidget(), Qt::Key_Escape);
        QVERIFY(window.dialog().isVisible());
        break;
    case 1:
        window.state.AbortRequested = true;
        break;
    case 2:
        window.click("cmdClose");
        QTRY_VERIFY(!window.isSearching());
        break;
    default:
        window.close();
    }
    QTRY_COMPARE(window.source.Text(), u"A-b"_qs);
    if (!window.isSearching())
        return;
    QVERIFY(window.get<QPushButton>("cmdFind").isEnabled());
    QCOMPARE(window.get<QLabel>("lblProgress").text(), QString());
}

void tst_frmFind::growingBeyondTheLimit()
{
    FindWindow window;
    window.source.setText(u"a"_qs);
    window.commands.showReplace();
    window.type("txtRomanSearch", u"a"_qs);
    window.get<QLineEdit>("txtRomanReplace").setText(QString(5000, u'a'));
    MessageBoxes boxes;
    window.click("cmdReplaceAll");
    QTRY_COMPARE(int(boxes.seen().size()), 1);
    QCOMPARE(boxes.seen()[0].text, u"Run-time error '6':\n\nOverflow"_qs);
    QTRY_VERIFY(window.get<QPushButton>("cmdReplaceAll").isEnabled());
    QCOMPARE(window.source.Text(), u"a"_qs);
}

void tst_frmFind::changedMeanwhile()
{
    FindWindow window;
    window.source.setText(u"a-b"_qs);
    window.commands.showReplace();
    window.type("txtRomanSearch", u"a"_qs);
    window.type("txtRomanReplace", u"a"_qs);
    window.click("cmdReplaceAll");
    // The user goes on typing, and takes away what would be replaced for ever.
    QTest::keyClick(&window.source, Qt::Key_Delete);
    QTest::keyClick(&window.source, Qt::Key_X);
    QTRY_VERIFY(window.get<QPushButton>("cmdFind").isEnabled());
    QCOMPARE(window.source.Text(), u"x-b"_qs);
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
