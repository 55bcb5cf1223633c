#include "editor/SharedState.h"
#include "editor/UndoJournal.h"
#include "engine/RuntimeError.h"
#include "engine/run/TranscriptionRun.h"
#include "platform/MessageBox.h"
#include "platform/RichTextBox.h"
#include "support/MessageBoxes.h"
#include "support/ModeFolder.h"

#include <QDialog>
#include <QSignalSpy>
#include <QTest>

namespace {

/// Keeps what was recorded and the text that the Target pane had then.
class RecordingJournal : public UndoJournal
{
public:
    explicit RecordingJournal(const RichTextBox &target) : target_(target) {}
    void SaveUndoState(PaneCode pane) override
    {
        panes.append(pane);
        texts.append(target_.Text());
    }
    void UpdateUndoButtons(PaneCode) override {}
    void ClearUndoFiles(const QString &) override {}

    QList<PaneCode> panes;
    QStringList texts;

private:
    const RichTextBox &target_;
};

/// The panes, timers and settings that a run works on, with a mode that doubles letters.
struct Bench
{
    Bench()
    {
        ModeBytes mode;
        for (char letter = 'a'; letter <= 'w'; ++letter)
            mode.rule(QByteArray(1, letter), QByteArray(1, letter) + QByteArray(1, letter));
        mode.rule("\xE9", "E");
        folder.add(QStringLiteral("Test"), mode.bytes());
        state.Settings.ModePath = folder.path();
        state.Settings.CurrentMode = QStringLiteral("Test");
        tmrAutoGenerate.start(tickLength);
        tmrStatus.setInterval(1);
    }

    /// A command that is run from within the message loop at the n-th step.
    void atStep(int step, const std::function<void()> &command)
    {
        QObject::connect(&everyTurn, &QTimer::timeout, &everyTurn, [this, step, command] {
            if (++turns == step)
                command();
        });
        everyTurn.start(0);
    }

    static constexpr int tickLength = 5;

    ModeFolder folder;
    SharedState state;
    QWidget window;
    RichTextBox source;
    RichTextBox target;
    RecordingJournal journal{target};
    QTimer tmrStatus;
    QTimer tmrAutoGenerate;
    QTimer everyTurn;
    int turns = 0;
    int modesShown = 0;
    std::function<void()> chooseMode;
    TranscriptionRun run{
        state, {window, source, target, journal, tmrStatus, tmrAutoGenerate}, [this] {
            ++modesShown;
            if (chooseMode)
                chooseMode();
        }};
};

const QString runningMessage = u"Transcribing to tengwar - press ESC to abort."_qs;

} // namespace

class tst_TranscriptionRun : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void destinations_data();
    void destinations();
    void recordsTheTargetBeforeItChanges();
    void messagesPointerAndTimers();
    void statusTexts_data();
    void statusTexts();
    void missingModeChangesNothing();
    void modeIsChosenFirst();
    void closedModesDialogEndsTheCommand();
    void modeIsReadAfreshEachTime();
    void combiningMarksAreComposed();
    void textThatIsTooLong();
    void brokenMode();
    void abortStoresWhatIsDone();
    void abortIsForgottenAtTheNextRun();
    void secondRunDoesNothing();
    void commandsWaitForTheEnd();
    void waitingCommandsFollowEachOther();
    void commandsRunAtOnceOtherwise();
    void commandsFollowAnError();
    void panesAndModeMayChangeDuringARun();
    void warning_data();
    void warning();
    void autoTranscribeIsAskedFor();
    void autoTranscribeIsSwitchedOff();
    void autoTranscribeWaitsForAPause();
    void autoTranscribeFollowsEveryChange();
    void autoTranscribeLeavesFormattingAlone();
    void autoTranscribeRestsUnderDialogs();
};

void tst_TranscriptionRun::destinations_data()
{
    QTest::addColumn<bool>("sourceSelected");
    QTest::addColumn<bool>("autoTranscribe");
    QTest::addColumn<bool>("clearsTarget");
    QTest::addColumn<QString>("result");
    QTest::newRow("whole text at the selection") << false << false << false << u"1aabb\r\ncc4"_qs;
    QTest::newRow("whole text, target cleared") << false << false << true << u"aabb\r\ncc"_qs;
    QTest::newRow("whole text for whole text") << false << true << false << u"aabb\r\ncc"_qs;
    QTest::newRow("selection at the selection") << true << false << false << u"1bb4"_qs;
    QTest::newRow("selection though automatic") << true << true << false << u"1bb4"_qs;
    QTest::newRow("selection, target cleared") << true << false << true << u"bb"_qs;
}

void tst_TranscriptionRun::destinations()
{
    QFETCH(bool, sourceSelected);
    QFETCH(bool, autoTranscribe);
    QFETCH(bool, clearsTarget);
    Bench bench;
    bench.state.AutoTranscribe = autoTranscribe;
    bench.state.Settings.ClearTargetPane = clearsTarget;
    bench.source.setText(u"ab\r\nc"_qs);
    bench.target.setText(u"1234"_qs);
    bench.target.setSelStart(1);
    bench.target.setSelLength(2);
    if (sourceSelected) {
        bench.source.setSelStart(1);
        bench.source.setSelLength(1);
    }
    bench.run.PrepareGeneration();
    QTEST(bench.target.Text(), "result");
    QCOMPARE(bench.source.Text(), u"ab\r\nc"_qs);
}

void tst_TranscriptionRun::recordsTheTargetBeforeItChanges()
{
    Bench bench;
    bench.state.Settings.ClearTargetPane = true;
    bench.source.setText(u"a"_qs);
    bench.target.setText(u"before"_qs);
    bench.run.PrepareGeneration();
    QCOMPARE(bench.journal.panes, QList<PaneCode>{PaneCode::Target});
    QCOMPARE(bench.journal.texts, QStringList{u"before"_qs});
}

void tst_TranscriptionRun::messagesPointerAndTimers()
{
    Bench bench;
    bench.source.setText(u"a"_qs);
    QSignalSpy messages(&bench.run, &TranscriptionRun::message);
    bool stateDuringRun = false;
    bench.atStep(1, [&] {
        stateDuringRun = bench.run.isRunning() && bench.tmrStatus.isActive() &&
                         !bench.tmrAutoGenerate.isActive() &&
                         QGuiApplication::overrideCursor() != nullptr;
    });
    bench.tmrAutoGenerate.stop(); // the end starts it whatever it was before
    bench.run.PrepareGeneration();
    QVERIFY(stateDuringRun);
    QCOMPARE(messages.first(), QVariantList({runningMessage, QString()}));
    QCOMPARE(messages.last(), QVariantList({QString(), QString()}));
    QVERIFY(!bench.tmrStatus.isActive());
    QVERIFY(bench.tmrAutoGenerate.isActive());
    QVERIFY(QGuiApplication::overrideCursor() == nullptr);
    QVERIFY(!bench.run.isRunning());
}

void tst_TranscriptionRun::statusTexts_data()
{
    QTest::addColumn<double>("done");
    QTest::addColumn<QString>("whole");
    QTest::addColumn<QString>("exact");
    QTest::newRow("nothing") << 0.0 << u"% done."_qs << u"0.00% done."_qs;
    QTest::newRow("less than half a per cent") << 0.004 << u"% done."_qs << u"0.40% done."_qs;
    QTest::newRow("one") << 0.005 << u"1% done."_qs << u"0.50% done."_qs;
    QTest::newRow("part") << 0.4567 << u"46% done."_qs << u"45.67% done."_qs;
    QTest::newRow("all") << 1.0 << u"100% done."_qs << u"100.00% done."_qs;
}

void tst_TranscriptionRun::statusTexts()
{
    QFETCH(double, done);
    QFETCH(QString, whole);
    QFETCH(QString, exact);
    Bench bench;
    bench.state.Progress = done;
    QSignalSpy messages(&bench.run, &TranscriptionRun::message);
    bench.tmrStatus.start();
    QVERIFY(messages.wait());
    QCOMPARE(messages.first(), QVariantList({runningMessage + u' ' + whole, exact}));
}

void tst_TranscriptionRun::missingModeChangesNothing()
{
    Bench bench;
    bench.state.Settings.CurrentMode = u"Gone"_qs;
    bench.state.Settings.ClearTargetPane = true;
    bench.source.setText(u"a"_qs);
    bench.target.setText(u"before"_qs);
    const MessageBoxes boxes;
    QSignalSpy messages(&bench.run, &TranscriptionRun::message);
    bench.run.PrepareGeneration();
    QCOMPARE(bench.target.Text(), u"before"_qs);
    QVERIFY(bench.journal.panes.isEmpty());
    QVERIFY(boxes.seen().empty());
    QCOMPARE(messages.last(), QVariantList({QString(), QString()}));
    QVERIFY(bench.tmrAutoGenerate.isActive());
}

void tst_TranscriptionRun::modeIsChosenFirst()
{
    Bench bench;
    bench.state.Settings.CurrentMode.clear();
    bench.source.setText(u"a"_qs);
    bench.chooseMode = [&bench] {
        bench.state.TransferValue = u"Transcribe"_qs;
        // Transcribe without a selected mode: the dialog is shown once more.
        if (bench.modesShown == 2)
            bench.state.Settings.CurrentMode = u"Test"_qs;
    };
    bench.run.PrepareGeneration();
    QCOMPARE(bench.modesShown, 2);
    QCOMPARE(bench.target.Text(), u"aa"_qs);
}

void tst_TranscriptionRun::closedModesDialogEndsTheCommand()
{
    Bench bench;
    bench.state.Settings.CurrentMode.clear();
    bench.source.setText(u"a"_qs);
    QSignalSpy messages(&bench.run, &TranscriptionRun::message);
    // OK sets the mode but is not the answer "Transcribe".
    bench.chooseMode = [&bench] { bench.state.Settings.CurrentMode = u"Test"_qs; };
    bench.run.PrepareGeneration();
    QCOMPARE(bench.modesShown, 1);
    QCOMPARE(bench.target.Text(), QString());
    QVERIFY(messages.isEmpty());
    QVERIFY(!bench.run.isRunning());
}

void tst_TranscriptionRun::modeIsReadAfreshEachTime()
{
    Bench bench;
    bench.source.setText(u"a"_qs);
    bench.run.PrepareGeneration();
    bench.folder.add(u"Test"_qs, ModeBytes().rule("a", "new").bytes());
    bench.run.PrepareGeneration();
    QCOMPARE(bench.target.Text(), u"aanew"_qs);
}

void tst_TranscriptionRun::combiningMarksAreComposed()
{
    Bench bench;
    bench.source.setText(u"ae\u0301"_qs);
    bench.run.PrepareGeneration();
    QCOMPARE(bench.target.Text(), u"aaE"_qs);
}

void tst_TranscriptionRun::textThatIsTooLong()
{
    Bench bench;
    bench.source.setText(QString(32768, u'a'));
    bench.target.setText(u"before"_qs);
    QVERIFY_THROWS_EXCEPTION(RuntimeError, bench.run.PrepareGeneration());
    QCOMPARE(bench.target.Text(), u"before"_qs);
    // The command ended where it was; what it had set stays until the next run.
    QVERIFY(bench.tmrStatus.isActive());
    QVERIFY(!bench.tmrAutoGenerate.isActive());
    QVERIFY(QGuiApplication::overrideCursor() != nullptr);

    bench.source.setText(u"a"_qs);
    bench.run.PrepareGeneration();
    QCOMPARE(bench.target.Text(), u"aabefore"_qs);
    QVERIFY(!bench.tmrStatus.isActive());
    QVERIFY(bench.tmrAutoGenerate.isActive());
    QVERIFY(QGuiApplication::overrideCursor() == nullptr);
}

void tst_TranscriptionRun::brokenMode()
{
    Bench bench;
    bench.folder.add(u"Test"_qs, ModeBytes().add("no rule").bytes());
    bench.source.setText(u"a"_qs);
    QVERIFY_THROWS_EXCEPTION(RuntimeError, bench.run.PrepareGeneration());
    QVERIFY(bench.journal.panes.isEmpty());
    QGuiApplication::restoreOverrideCursor();
}

void tst_TranscriptionRun::abortStoresWhatIsDone()
{
    Bench bench;
    bench.source.setText(QString(20000, u'a'));
    bench.atStep(100, [&bench] { bench.state.AbortRequested = true; });
    bench.run.PrepareGeneration();
    const qsizetype length = bench.target.Text().size();
    QVERIFY2(length > 0 && length < 40000, qPrintable(QString::number(length)));
    QCOMPARE(bench.target.Text(), QString(length, u'a'));
    QCOMPARE(length % 2, 0);
}

void tst_TranscriptionRun::abortIsForgottenAtTheNextRun()
{
    Bench bench;
    bench.source.setText(u"a"_qs);
    bench.state.AbortRequested = true;
    bench.run.PrepareGeneration();
    QCOMPARE(bench.target.Text(), u"aa"_qs);
}

void tst_TranscriptionRun::secondRunDoesNothing()
{
    Bench bench;
    bench.source.setText(QString(5000, u'a'));
    bool wasRunning = false;
    bench.atStep(100, [&] {
        wasRunning = bench.run.isRunning();
        bench.run.PrepareGeneration();
    });
    bench.run.PrepareGeneration();
    QVERIFY(wasRunning);
    QCOMPARE(bench.target.TextLength(), 10000);
    QCOMPARE(bench.journal.panes.size(), 1);
}

void tst_TranscriptionRun::commandsWaitForTheEnd()
{
    Bench bench;
    bench.source.setText(QString(20000, u'a'));
    QStringList order;
    bench.atStep(50, [&] {
        bench.run.whenIdle([&] {
            order.append(bench.run.isRunning() ? u"running"_qs : u"idle"_qs);
            order.append(QString::number(bench.target.TextLength() > 0));
        });
        bench.run.whenIdle([&] { order.append(u"second"_qs); });
        QVERIFY(order.isEmpty());
    });
    bench.run.PrepareGeneration();
    QVERIFY(bench.target.TextLength() < 40000);
    QTRY_COMPARE(order, QStringList({u"idle"_qs, u"1"_qs, u"second"_qs}));
}

void tst_TranscriptionRun::waitingCommandsFollowEachOther()
{
    Bench bench;
    bench.source.setText(QString(20000, u'a'));
    QStringList order;
    bench.atStep(50, [&] {
        bench.run.whenIdle([&] {
            order.append(u"first begins"_qs);
            showMessage(&bench.window, {.text = u"question"_qs}); // serves the message loop
            order.append(u"first ends"_qs);
        });
        bench.run.whenIdle([&] { order.append(u"second"_qs); });
    });
    const MessageBoxes boxes;
    bench.run.PrepareGeneration();
    QTRY_COMPARE(order, QStringList({u"first begins"_qs, u"first ends"_qs, u"second"_qs}));
}

void tst_TranscriptionRun::commandsRunAtOnceOtherwise()
{
    Bench bench;
    bool hasRun = false;
    bench.run.whenIdle([&] { hasRun = true; });
    QVERIFY(hasRun);
    QVERIFY(!bench.state.AbortRequested);
}

void tst_TranscriptionRun::commandsFollowAnError()
{
    Bench bench;
    bench.state.Settings.CurrentMode.clear();
    bool hasRun = false;
    bench.chooseMode = [&] {
        bench.run.whenIdle([&] { hasRun = true; });
        bench.state.TransferValue = u"Transcribe"_qs;
        bench.state.Settings.CurrentMode = u"Test"_qs;
    };
    bench.source.setText(QString(32768, u'a'));
    QVERIFY_THROWS_EXCEPTION(RuntimeError, bench.run.PrepareGeneration());
    QTRY_VERIFY(hasRun);
    QGuiApplication::restoreOverrideCursor();
}

void tst_TranscriptionRun::panesAndModeMayChangeDuringARun()
{
    Bench bench;
    bench.source.setText(QString(3000, u'a'));
    bench.target.setText(u"123"_qs);
    bench.target.setSelStart(3);
    bench.atStep(20, [&] {
        bench.source.setText(u"b"_qs);
        bench.target.setText({});
        QVERIFY(QFile::remove(bench.folder.path(u"Test.mod"_qs)));
        bench.state.Settings.CurrentMode.clear();
        bench.state.Settings.UndefinedText = u"changed"_qs;
    });
    bench.run.PrepareGeneration();
    QCOMPARE(bench.target.Text(), QString(6000, u'a'));
}

void tst_TranscriptionRun::warning_data()
{
    QTest::addColumn<bool>("wanted");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("boxes");
    QTest::newRow("one for all of them") << true << u"axyz"_qs << 1;
    QTest::newRow("all defined") << true << u"a"_qs << 0;
    QTest::newRow("not wanted") << false << u"axyz"_qs << 0;
}

void tst_TranscriptionRun::warning()
{
    QFETCH(bool, wanted);
    QFETCH(QString, text);
    QFETCH(int, boxes);
    Bench bench;
    bench.state.Settings.UndefinedAlert = wanted;
    bench.state.Settings.UndefinedText = u"?"_qs;
    bench.source.setText(text);
    const MessageBoxes answered;
    bench.run.PrepareGeneration();
    QCOMPARE(static_cast<int>(answered.seen().size()), boxes);
    QCOMPARE(bench.target.Text(), text == u"a"_qs ? u"aa"_qs : u"aa???"_qs);
    if (boxes > 0) {
        QCOMPARE(answered.seen().front().title, u"Warning"_qs);
        QCOMPARE(answered.seen().front().text,
                 u"Some of the characters were not defined in the selected mode. These could not "
                 "be transcribed."_qs);
        QCOMPARE(answered.seen().front().icon, QMessageBox::Warning);
    }
}

void tst_TranscriptionRun::autoTranscribeIsAskedFor()
{
    Bench bench;
    bench.source.setText(u"a"_qs);
    bench.target.setText(u"before"_qs);
    QSignalSpy changes(&bench.run, &TranscriptionRun::autoTranscribeChanged);
    {
        const MessageBoxes no({QMessageBox::No});
        bench.run.toggleAutoTranscribe();
        QCOMPARE(no.seen().size(), 1u);
        QCOMPARE(no.seen().front().title, u"Auto Transcribe"_qs);
        QCOMPARE(no.seen().front().text,
                 u"Are you sure you want to transcribe to tengwar automatically? The current "
                 "contents of the target field will be lost."_qs);
        QCOMPARE(no.seen().front().icon, QMessageBox::Warning);
    }
    QVERIFY(!bench.state.AutoTranscribe);
    QVERIFY(changes.isEmpty());
    QCOMPARE(bench.target.Text(), u"before"_qs);

    const MessageBoxes yes({QMessageBox::Yes});
    bench.run.toggleAutoTranscribe();
    QVERIFY(bench.state.AutoTranscribe);
    QCOMPARE(changes.size(), 1);
    QCOMPARE(bench.target.Text(), u"aa"_qs);
}

void tst_TranscriptionRun::autoTranscribeIsSwitchedOff()
{
    Bench bench;
    bench.state.AutoTranscribe = true;
    const MessageBoxes boxes;
    QSignalSpy changes(&bench.run, &TranscriptionRun::autoTranscribeChanged);
    bench.run.toggleAutoTranscribe();
    QVERIFY(!bench.state.AutoTranscribe);
    QVERIFY(boxes.seen().empty());
    QCOMPARE(changes.takeFirst(), QVariantList{false});
}

void tst_TranscriptionRun::autoTranscribeWaitsForAPause()
{
    Bench bench;
    bench.state.AutoTranscribe = true;
    QSignalSpy ticks(&bench.tmrAutoGenerate, &QTimer::timeout);
    qsizetype ticksBeforeRun = -1;
    connect(&bench.target, &RichTextBox::changed, this, [&] { ticksBeforeRun = ticks.size(); });
    QTest::keyClicks(&bench.source, u"ab"_qs);
    ticks.clear();
    QTRY_COMPARE(bench.target.Text(), u"aabb"_qs);
    QCOMPARE(ticksBeforeRun, 2); // the third one started the run

    // Not again until the next change.
    bench.target.setText(u"mine"_qs);
    ticks.clear();
    QTRY_VERIFY(ticks.size() > 5);
    QCOMPARE(bench.target.Text(), u"mine"_qs);
    QTest::keyClicks(&bench.source, u"c"_qs);
    QTRY_COMPARE(bench.target.Text(), u"aabbcc"_qs);
}

void tst_TranscriptionRun::autoTranscribeFollowsEveryChange()
{
    Bench bench;
    bench.source.setText(u"ab"_qs);
    bench.state.AutoTranscribe = true;
    QTRY_COMPARE(bench.target.Text(), u"aabb"_qs);
    bench.source.setSelStart(0);
    bench.source.setSelText(u"pasted"_qs);
    QTRY_COMPARE(bench.target.Text(), u"ppaasstteeddaabb"_qs);
}

void tst_TranscriptionRun::autoTranscribeLeavesFormattingAlone()
{
    Bench bench;
    bench.source.setText(u"ab"_qs);
    bench.state.AutoTranscribe = true;
    QTRY_COMPARE(bench.target.Text(), u"aabb"_qs);
    bench.target.setText(u"mine"_qs);
    bench.source.setSelStart(0);
    bench.source.setSelLength(2);
    bench.source.setSelBold(true);
    QSignalSpy ticks(&bench.tmrAutoGenerate, &QTimer::timeout);
    QTRY_VERIFY(ticks.size() > 5);
    QCOMPARE(bench.target.Text(), u"mine"_qs);
}

void tst_TranscriptionRun::autoTranscribeRestsUnderDialogs()
{
    Bench bench;
    bench.source.setText(u"ab"_qs);
    bench.state.AutoTranscribe = true;
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    QSignalSpy ticks(&bench.tmrAutoGenerate, &QTimer::timeout);
    QTRY_VERIFY(ticks.size() > 5);
    QCOMPARE(bench.target.Text(), QString());
    dialog.close();
    QTRY_COMPARE(bench.target.Text(), u"aabb"_qs);
}

QTEST_MAIN(tst_TranscriptionRun)
#include "tst_transcriptionrun.moc"
