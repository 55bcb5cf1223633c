#include "app/CaptionLabel.h"
#include "app/ToolbarCombo.h"
#include "platform/RichTextBox.h"
#include "support/FileDialogs.h"
#include "support/MessageBoxes.h"
#include "support/ModalDialog.h"
#include "support/ProgramFixture.h"

#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QRandomGenerator>
#include <QTest>
#include <QUrl>

using namespace Qt::Literals::StringLiterals;

/// The program with everything connected, as its user meets it.
class tst_WholeProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void typesTranscribesAndUndoes();
    void formatsAndShowsTheFormat();
    void formatCommandsReachTheSelection_data();
    void formatCommandsReachTheSelection();
    void commandsOpenTheirDialogs_data();
    void commandsOpenTheirDialogs();
    void commandsDoNothingWithoutAPane();
    void droppedFileIsOpened();
    void unknownCharactersAreSoughtWhereTheyLeaveMarks();
    void glyphVariantsChangeTheTarget();
    void autoTranscribeShowsInMenuAndToolbar();
    void modeIsChosenFromTheList();
    void commandsOfTheFileMenuReachTheActivePane();
    void newEndsARunFirst();
    void closingEndsARunFirst();
    void anythingMayHappenDuringARun();

private:
    void trigger(QLatin1StringView name) { form().commands().action(name).trigger(); }
    [[nodiscard]] Form1 &form() { return fixture_->form(); }
    [[nodiscard]] RichTextBox &source() { return *form().controls().rtbRoman; }
    [[nodiscard]] RichTextBox &target() { return *form().controls().rtbTengwar; }
    [[nodiscard]] bool isRunning() { return form().tmrStatus().isActive(); }
    void act(QRandomGenerator &random);
    void startAnew();

    std::unique_ptr<ProgramFixture> fixture_;
};

namespace {

QByteArray doublingMode()
{
    ModeBytes mode("Doubles letters\t1");
    for (char letter = 'a'; letter <= 'z'; ++letter)
        mode.rule(QByteArray(1, letter), QByteArray(2, letter));
    return mode.bytes();
}

} // namespace

void tst_WholeProgram::init()
{
    fixture_ = std::make_unique<ProgramFixture>(ProgramFixture::Modes{
        {u"Doubles"_s, doublingMode()}, {u"Other"_s, ModeBytes().rule("a", "o").bytes()}});
}

void tst_WholeProgram::cleanup()
{
    fixture_.reset();
    QVERIFY(QGuiApplication::overrideCursor() == nullptr);
}

void tst_WholeProgram::typesTranscribesAndUndoes()
{
    QVERIFY(source().hasFocus());
    QVERIFY(!form().commands().action("mnuEUndo"_L1).isEnabled());
    QTest::keyClicks(&source(), u"ab c"_s);
    trigger("Toolbar1.Transcribe"_L1);
    QCOMPARE(target().Text(), u"aabbcc"_s); // the space has no rule, and undefined text is empty
    QCOMPARE(source().Tag(), u"Dirty"_s);
    QCOMPARE(target().Tag(), u"Dirty"_s);

    target().setFocus();
    QVERIFY(form().commands().action("mnuEUndo"_L1).isEnabled());
    trigger("mnuEUndo"_L1);
    QCOMPARE(target().Text(), QString());
    QTest::keyClick(&target(), Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(target().Text(), u"aabbcc"_s);
    source().setFocus();
    QTest::keyClick(&source(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(source().Text(), QString());
    QCOMPARE(target().Text(), u"aabbcc"_s);
}

void tst_WholeProgram::formatsAndShowsTheFormat()
{
    QTest::keyClicks(&source(), u"abc"_s);
    QTest::keyClick(&source(), Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(form().controls().SelText->text(), u"abc"_s);
    trigger("tbrFormat.FormatBold"_L1);
    QCOMPARE(source().SelFormat().bold, true);
    QVERIFY(form().commands().action("tbrFormat.FormatBold"_L1).isChecked());
    source().setSelStart(0);
    source().setSelLength(1);
    QCOMPARE(form().controls().SelText->text(), u"a (#97)"_s);

    target().setFocus();
    QCOMPARE(form().controls().cboFontName->currentText(), u"Tengwar Quillon"_s);
    QVERIFY(!form().commands().action("tbrFormat.FormatBold"_L1).isChecked());
    QTest::keyClick(&target(), Qt::Key_Tab, Qt::ControlModifier);
    QVERIFY(source().hasFocus());
    QVERIFY(form().commands().action("tbrFormat.FormatBold"_L1).isChecked());
}

void tst_WholeProgram::formatCommandsReachTheSelection_data()
{
    using Check = bool (*)(const SelectionFormat &);
    QTest::addColumn<QString>("action");
    QTest::addColumn<Check>("check");
    const auto add = [](const char *action, Check check) {
        QTest::newRow(action) << QString::fromLatin1(action) << check;
    };
    const Check isBold = [](const SelectionFormat &format) { return format.bold == true; };
    const Check isItalic = [](const SelectionFormat &format) { return format.italic == true; };
    const Check isUnderlined = [](const SelectionFormat &format) {
        return format.underline == true;
    };
    const Check isRight = [](const SelectionFormat &format) {
        return format.alignment == Alignment::Right;
    };
    const Check isCentred = [](const SelectionFormat &format) {
        return format.alignment == Alignment::Center;
    };
    const Check isLeft = [](const SelectionFormat &format) {
        return format.alignment == Alignment::Left;
    };
    const Check isBulleted = [](const SelectionFormat &format) { return format.bullet == true; };
    add("mnuFSBold", isBold);
    add("tbrFormat.FormatBold", isBold);
    add("mnuFSItalic", isItalic);
    add("tbrFormat.FormatItalic", isItalic);
    add("mnuFSUnderline", isUnderlined);
    add("tbrFormat.FormatUnderline", isUnderlined);
    add("tbrFormat.FormatLarger",
        [](const SelectionFormat &format) { return format.fontSize == 14; });
    add("tbrFormat.FormatSmaller",
        [](const SelectionFormat &format) { return format.fontSize == 10; });
    add("mnuFCSuper", [](const SelectionFormat &format) { return format.charOffset == 30; });
    add("mnuFCSub", [](const SelectionFormat &format) { return format.charOffset == -30; });
    add("mnuFCNormal", [](const SelectionFormat &format) { return format.charOffset == 0; });
    add("mnuFARightJustify", isRight);
    add("tbrFormat.RightAlign", isRight);
    add("mnuFACenter", isCentred);
    add("tbrFormat.CenterAlign", isCentred);
    add("mnuFALeftJustify", isLeft);
    add("tbrFormat.LeftAlign", isLeft);
    add("mnuFBulletedList", isBulleted);
    add("tbrFormat.BulletedList", isBulleted);
}

void tst_WholeProgram::formatCommandsReachTheSelection()
{
    using Check = bool (*)(const SelectionFormat &);
    QFETCH(QString, action);
    QFETCH(Check, check);
    QTest::keyClicks(&source(), u"abc"_s);
    QTest::keyClick(&source(), Qt::Key_A, Qt::ControlModifier);
    trigger(QLatin1StringView(action.toLatin1()));
    QVERIFY(check(source().SelFormat()));
    QTest::keyClick(&source(), Qt::Key_Z, Qt::ControlModifier); // one state was recorded
    QCOMPARE(source().Text(), u"abc"_s);
}

void tst_WholeProgram::commandsOpenTheirDialogs_data()
{
    QTest::addColumn<QString>("dialog");
    QTest::newRow("mnuFOpen") << u"CommonDialog1"_s;
    QTest::newRow("Toolbar1.Open") << u"CommonDialog1"_s;
    QTest::newRow("mnuFSave") << u"CommonDialog1"_s; // an untitled pane asks for a name
    QTest::newRow("mnuFSaveAs") << u"CommonDialog1"_s;
    QTest::newRow("mnuFPrint") << u"CommonDialog1"_s;
    QTest::newRow("mnuEPreferences") << u"frmPreferences"_s;
    QTest::newRow("mnuFParagraph") << u"frmParagraph"_s;
    QTest::newRow("mnuTMode") << u"frmModes"_s;
    QTest::newRow("mnuTRunModeSmith") << u"messageBox"_s; // there is no mode editor yet
    QTest::newRow("mnuHAbout") << u"frmAbout"_s;
    QTest::newRow("mnuINumerical") << u"frmCalculator"_s;
    QTest::newRow("mnuISpecialCharacters") << u"frmSpecialCharacters"_s;
}

void tst_WholeProgram::commandsOpenTheirDialogs()
{
    QFETCH(QString, dialog);
    QString opened;
    QTimer user;
    user.callOnTimeout(this, [&opened] {
        if (auto *open = qobject_cast<QDialog *>(QApplication::activeModalWidget())) {
            opened = open->objectName();
            open->reject();
        }
    });
    user.start(0);
    trigger(QLatin1StringView(QTest::currentDataTag()));
    QTRY_COMPARE(opened, dialog);
}

void tst_WholeProgram::commandsDoNothingWithoutAPane()
{
    QTest::keyClicks(&source(), u"abc"_s);
    fixture_->program->state().ActivePane = PaneCode::None;
    const MessageBoxes boxes;
    for (const auto name : {"mnuFNew"_L1, "mnuFSave"_L1, "mnuECut"_L1, "mnuEClear"_L1,
                            "mnuEPaste"_L1, "mnuFSBold"_L1, "mnuFParagraph"_L1})
        trigger(name);
    QVERIFY(boxes.seen().empty());
    QCOMPARE(source().Text(), u"abc"_s);
}

void tst_WholeProgram::droppedFileIsOpened()
{
    fixture_->modes.write(u"letter.txt"_s, "a letter");
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(fixture_->modes.path(u"letter.txt"_s))});
    QDragEnterEvent enter({5, 5}, Qt::CopyAction | Qt::MoveAction, &files, Qt::LeftButton, {});
    QCoreApplication::sendEvent(target().viewport(), &enter);
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction | Qt::MoveAction, &files, Qt::LeftButton, {});
    drop.setDropAction(Qt::MoveAction);
    QCoreApplication::sendEvent(target().viewport(), &drop);
    QCOMPARE(drop.dropAction(), Qt::CopyAction); // the file stays where it is
    QTRY_COMPARE(target().Text(), u"a letter"_s);
    QCOMPARE(form().controls().lblTengwarCaption->text(), u"Target - letter.txt"_s);
    QCOMPARE(target().Tag(), QString());
}

void tst_WholeProgram::unknownCharactersAreSoughtWhereTheyLeaveMarks()
{
    auto *menu = form().findChild<QMenu *>("mnuTengwar"_L1);
    const auto canSeek = [&] {
        Q_EMIT menu->aboutToShow();
        return form().commands().action("mnuTFindNext"_L1).isEnabled() &&
               form().commands().action("mnuTFindPrevious"_L1).isEnabled();
    };
    QVERIFY(!canSeek());
    fixture_->program->state().Settings.UndefinedText = u"?"_s;
    QVERIFY(canSeek());
    QTest::keyClicks(&source(), u"a!b"_s);
    trigger("mnuTTranscribe"_L1);
    target().setSelStart(0);
    trigger("mnuTFindNext"_L1);
    QCOMPARE(target().SelText(), u"?"_s);
    QCOMPARE(target().SelStart(), 2);
}

void tst_WholeProgram::glyphVariantsChangeTheTarget()
{
    target().setText(u"pP[{+_"_s);
    trigger("mnuTSCurledToStraight"_L1);
    QCOMPARE(target().Text(), u"[{[{+_"_s);
    trigger("mnuTSStraightToCurled"_L1);
    QCOMPARE(target().Text(), u"pPpP+_"_s);
    trigger("mnuTSStandardToLooped"_L1);
    QCOMPARE(target().Text(), u"pPpP£¥"_s);
    trigger("mnuTSLoopedToStandard"_L1);
    QCOMPARE(target().Text(), u"pPpP+_"_s);
}

void tst_WholeProgram::autoTranscribeShowsInMenuAndToolbar()
{
    QAction &item = form().commands().action("mnuTAutoTranscribe"_L1);
    QAction &transcribe = form().commands().action("mnuTTranscribe"_L1);
    QAction &button = form().commands().action("Toolbar1.Transcribe"_L1);
    const auto shows = [&](bool isOn) {
        return item.isChecked() == isOn && button.isChecked() == isOn &&
               transcribe.isEnabled() != isOn && button.isEnabled() != isOn;
    };
    QVERIFY(shows(false));
    {
        const MessageBoxes no({QMessageBox::No});
        item.trigger();
        QVERIFY(shows(false));
    }
    const MessageBoxes yes({QMessageBox::Yes});
    item.trigger();
    QVERIFY(shows(true));
    QTest::keyClicks(&source(), u"a"_s);
    QTRY_COMPARE(target().Text(), u"aa"_s);
    item.trigger();
    QVERIFY(shows(false));
    QCOMPARE(yes.seen().size(), 1u);
}

void tst_WholeProgram::modeIsChosenFromTheList()
{
    ToolbarCombo *modes = form().controls().cboModeName;
    QCOMPARE(modes->currentText(), u"Doubles"_s);
    modes->setFocus();
    QTest::keyClicks(modes, u"Other"_s);
    QTest::keyClick(modes, Qt::Key_Return);
    QTRY_VERIFY(source().hasFocus());
    QTest::keyClicks(&source(), u"a"_s);
    trigger("mnuTTranscribe"_L1);
    QCOMPARE(target().Text(), u"o"_s);
}

void tst_WholeProgram::commandsOfTheFileMenuReachTheActivePane()
{
    QTest::keyClicks(&source(), u"source"_s);
    target().setFocus();
    QTest::keyClicks(&target(), u"target"_s);
    MessageBoxes boxes({QMessageBox::No});
    trigger("mnuFNew"_L1);
    QCOMPARE(boxes.seen().size(), 1u);
    QCOMPARE(boxes.seen().front().text,
             u"The target file has been changed. Do you want to save the changes?"_s);
    QCOMPARE(source().Text(), u"source"_s);
    QCOMPARE(target().Text(), QString());
}

void tst_WholeProgram::newEndsARunFirst()
{
    source().setText(QString(20000, u'a'));
    source().setTag({});
    const MessageBoxes boxes({QMessageBox::No});
    QTimer::singleShot(0, this, [this] {
        QVERIFY(isRunning());
        target().setFocus();
        trigger("mnuFNew"_L1);
        QVERIFY(isRunning()); // not yet: the run stores its part first
    });
    trigger("mnuTTranscribe"_L1);
    QVERIFY(target().TextLength() < 40000);
    QTRY_COMPARE(boxes.seen().size(), 1u);
    QTRY_COMPARE(target().Text(), QString());
}

void tst_WholeProgram::closingEndsARunFirst()
{
    source().setText(QString(20000, u'a'));
    const MessageBoxes boxes({QMessageBox::No, QMessageBox::No});
    QTimer::singleShot(0, this, [this] {
        form().close();
        QVERIFY(form().isVisible());
    });
    trigger("mnuTTranscribe"_L1);
    QVERIFY(target().TextLength() < 40000);
    QTRY_VERIFY(!form().isVisible());
    QCOMPARE(boxes.seen().size(), 2u); // both panes were changed
}

/// One thing that a user might do while a run lasts.
void tst_WholeProgram::act(QRandomGenerator &random)
{
    constexpr QLatin1StringView commands[] = {"mnuTTranscribe"_L1,
                                              "mnuEUndo"_L1,
                                              "mnuERedo"_L1,
                                              "mnuFNew"_L1,
                                              "mnuFClearAll"_L1,
                                              "mnuFOpen"_L1,
                                              "mnuFSave"_L1,
                                              "mnuECut"_L1,
                                              "mnuECopy"_L1,
                                              "mnuEPaste"_L1,
                                              "mnuEClear"_L1,
                                              "mnuESelectAll"_L1,
                                              "mnuFSBold"_L1,
                                              "mnuFCSuper"_L1,
                                              "mnuFBulletedList"_L1,
                                              "mnuPSource"_L1,
                                              "mnuPTarget"_L1,
                                              "mnuTAutoTranscribe"_L1,
                                              "mnuTMode"_L1,
                                              "mnuVFormattingToolbar"_L1,
                                              "mnuTSStraightToCurled"_L1};
    RichTextBox &pane = random.bounded(2) == 0 ? source() : target();
    switch (random.bounded(8)) {
    case 0:
        QTest::keyClicks(&pane, u"xyz"_s);
        break;
    case 1:
        pane.setSelStart(random.bounded(100));
        pane.setSelLength(random.bounded(50));
        break;
    case 2:
        QTest::keyClick(&pane, random.bounded(4) == 0 ? Qt::Key_Escape : Qt::Key_Backspace);
        break;
    case 3:
        fixture_->modes.add(u"Doubles"_s,
                            random.bounded(4) == 0 ? QByteArray("damaged") : doublingMode());
        break;
    case 4:
        form().close(); // most often the question that follows is answered by Cancel
        break;
    default:
        trigger(commands[random.bounded(static_cast<int>(std::size(commands)))]);
    }
}

/// After the window was closed in the middle of things.
void tst_WholeProgram::startAnew()
{
    while (QGuiApplication::overrideCursor() != nullptr)
        QGuiApplication::restoreOverrideCursor(); // the last run may have ended with an error
    fixture_.reset();
    init();
}

void tst_WholeProgram::anythingMayHappenDuringARun()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    // A box that lacks the button gets another answer; the boxes of errors have only OK.
    constexpr QMessageBox::StandardButton buttons[] = {QMessageBox::Yes, QMessageBox::No,
                                                       QMessageBox::Cancel, QMessageBox::Cancel};
    std::deque<QMessageBox::StandardButton> answers;
    for (int i = 0; i < 2000; ++i)
        answers.push_back(buttons[random.bounded(static_cast<int>(std::size(buttons)))]);
    const MessageBoxes boxes(answers);
    const QTemporaryDir folder;
    std::deque<FileDialogs::Answer> names; // what is opened later was saved before
    for (int i = 0; i < 100; ++i)
        names.push_back({folder.filePath(u"letter.txt"_s)});
    const FileDialogs files(names);
    const ModalDialog modes("frmModes", [&random](QDialog &dialog) {
        QTest::keyClick(&dialog, random.bounded(2) == 0 ? Qt::Key_Return : Qt::Key_Escape);
    });
    QTimer user;
    user.callOnTimeout(this, [&] {
        if (fixture_ && isRunning() && QApplication::activeModalWidget() == nullptr &&
            random.bounded(20) == 0)
            act(random);
    });
    user.start(0);
    for (int run = 0; run < 40; ++run) {
        if (!form().isVisible())
            startAnew();
        source().setText(QString(500 + random.bounded(1500), u'a'));
        trigger("mnuTTranscribe"_L1);
        QCoreApplication::processEvents();
    }
    user.stop();
    if (!form().isVisible())
        startAnew();
    QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);

    // However the runs ended, the next one is as the first.
    if (form().commands().action("mnuTAutoTranscribe"_L1).isChecked())
        trigger("mnuTAutoTranscribe"_L1);
    fixture_->modes.add(u"Doubles"_s, doublingMode());
    source().setText(u"abc"_s);
    target().setText({});
    trigger("mnuTTranscribe"_L1);
    QCOMPARE(target().Text(), u"aabbcc"_s);
    QVERIFY(!isRunning());
    QVERIFY(form().tmrAutoGenerate().isActive());
}

QTEST_MAIN(tst_WholeProgram)
#include "tst_wholeprogram.moc"
