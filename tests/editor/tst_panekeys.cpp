#include "editor/PaneKeys.h"

#include "editor/KeyCode.h"
#include "editor/PanesFixture.h"
#include "editor/UndoJournal.h"
#include "engine/RuntimeError.h"
#include "support/MessageBoxes.h"

#include <QDropEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <memory>

namespace {

/// Panes whose keys are watched, and what they led to: "1" and "2" for a state recorded for that
/// pane, else the command and the pane.
struct KeysFixture final : PanesFixture, UndoJournal
{
    QStringList calls;
    PaneKeys keys{window, *this,
                  PaneCommands{.Undo = write("Undo"),
                               .Redo = write("Redo"),
                               .Cut = write("Cut"),
                               .Copy = write("Copy"),
                               .Paste = write("Paste"),
                               .SelectAll = write("SelectAll"),
                               .otherPane = write("otherPane")}};

    KeysFixture()
    {
        keys.watch(*source, PaneCode::Source);
        keys.watch(*target, PaneCode::Target);
    }

    void SaveUndoState(PaneCode pane) override { calls += QString::number(int(pane)); }
    void UpdateUndoButtons(PaneCode) override {}
    void ClearUndoFiles(const QString &) override {}

    PaneCommands::Command write(const char *command)
    {
        return [this, command](PaneCode pane) {
            calls += QLatin1StringView(command) + QString::number(int(pane));
        };
    }

    void press(int key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(source, Qt::Key(key), modifiers);
    }

    /// What a method to type with commits.
    void commit(const QString &text) const
    {
        QInputMethodEvent event;
        event.setCommitString(text);
        QCoreApplication::sendEvent(source, &event);
    }
};

} // namespace

class tst_PaneKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { fixture_ = std::make_unique<KeysFixture>(); }
    void cleanup() { fixture_.reset(); }

    void codesKeys_data();
    void codesKeys();
    void recordsEachRunOnce();
    void recordsNothingForEnterAndSpace();
    void startsANewRunAfterEnter();
    void countsMovingAsTyping();
    void sharesTheRunBetweenThePanes();
    void keepsTheRunAcrossCommands();
    void countsTheKeypadAsTyping();
    void countsCommitsAsTyping();
    void recordsWhatIsTypedWithAlt();
    void recordsEveryEditingKey_data();
    void recordsEveryEditingKey();
    void recordsEveryDrop();
    void runsCommands_data();
    void runsCommands();
    void showsTheErrorsOfCommands();

private:
    std::unique_ptr<KeysFixture> fixture_;
};

void tst_PaneKeys::codesKeys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("code");
    QTest::newRow("Backspace") << int(Qt::Key_Backspace) << 8;
    QTest::newRow("Tab") << int(Qt::Key_Tab) << 9;
    QTest::newRow("Return") << int(Qt::Key_Return) << 13;
    QTest::newRow("Enter") << int(Qt::Key_Enter) << 13;
    QTest::newRow("Shift") << int(Qt::Key_Shift) << 16;
    QTest::newRow("AltGr") << int(Qt::Key_AltGr) << 18;
    QTest::newRow("Escape") << int(Qt::Key_Escape) << 27;
    QTest::newRow("Space") << int(Qt::Key_Space) << 32;
    QTest::newRow("Page Up") << int(Qt::Key_PageUp) << 33;
    QTest::newRow("Down") << int(Qt::Key_Down) << 40;
    QTest::newRow("Delete") << int(Qt::Key_Delete) << 46;
    QTest::newRow("7") << int(Qt::Key_7) << 55;
    QTest::newRow("A") << int(Qt::Key_A) << 65;
    QTest::newRow("F1") << int(Qt::Key_F1) << 112;
    QTest::newRow("comma") << int(Qt::Key_Comma) << 186;
    QTest::newRow("e acute") << int(Qt::Key_Eacute) << 186;
    QTest::newRow("dead acute") << int(Qt::Key_Dead_Acute) << 186;
}

void tst_PaneKeys::codesKeys()
{
    QFETCH(const int, key);
    QFETCH(const int, code);
    QCOMPARE(int(keyCode(key)), code);
}

void tst_PaneKeys::recordsEachRunOnce()
{
    KeysFixture &f = *fixture_;
    QTest::keyClicks(f.source, QStringLiteral("ab"));
    QCOMPARE(f.calls.size(), 1);
    f.press(Qt::Key_Backspace);
    f.press(Qt::Key_Backspace, Qt::ShiftModifier);
    QCOMPARE(f.calls.size(), 2);
    QTest::keyClicks(f.source, QStringLiteral("cD"));
    QCOMPARE(f.calls.size(), 3);
    QCOMPARE(f.source->Text(), QStringLiteral("cD"));
    f.press(Qt::Key_Home);
    f.press(Qt::Key_Delete);
    f.press(Qt::Key_Delete);
    QCOMPARE(f.calls, QStringList(4, QStringLiteral("1")));
    QCOMPARE(f.source->Text(), QString());
}

void tst_PaneKeys::recordsNothingForEnterAndSpace()
{
    KeysFixture &f = *fixture_;
    for (const int key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Tab, Qt::Key_Shift})
        f.press(key);
    QCOMPARE(f.calls, QStringList());
    QCOMPARE(f.source->Text(), QStringLiteral(" \r\n\r\n\t"));
}

void tst_PaneKeys::startsANewRunAfterEnter()
{
    KeysFixture &f = *fixture_;
    QTest::keyClicks(f.source, QStringLiteral("a b"));
    QCOMPARE(f.calls.size(), 1);
    f.press(Qt::Key_Return);
    QCOMPARE(f.calls.size(), 1);
    QTest::keyClicks(f.source, QStringLiteral("c"));
    QCOMPARE(f.calls.size(), 2);
}

void tst_PaneKeys::countsMovingAsTyping()
{
    KeysFixture &f = *fixture_;
    f.press(Qt::Key_Left);
    f.press(Qt::Key_F2);
    QTest::keyClicks(f.source, QStringLiteral("a"));
    QCOMPARE(f.calls, {QStringLiteral("1")});
}

void tst_PaneKeys::sharesTheRunBetweenThePanes()
{
    KeysFixture &f = *fixture_;
    QTest::keyClicks(f.source, QStringLiteral("a"));
    QTest::keyClicks(f.target, QStringLiteral("b"));
    QCOMPARE(f.calls, {QStringLiteral("1")});
    QTest::keyClick(f.target, Qt::Key_Backspace);
    QCOMPARE(f.calls, (QStringList{QStringLiteral("1"), QStringLiteral("2")}));
}

void tst_PaneKeys::keepsTheRunAcrossCommands()
{
    KeysFixture &f = *fixture_;
    QTest::keyClicks(f.source, QStringLiteral("a"));
    f.press(Qt::Key_C, Qt::ControlModifier);
    QTest::keyClicks(f.source, QStringLiteral("b"));
    QCOMPARE(f.calls, (QStringList{QStringLiteral("1"), QStringLiteral("Copy1")}));
}

void tst_PaneKeys::countsTheKeypadAsTyping()
{
    KeysFixture &f = *fixture_;
    f.press(Qt::Key_5, Qt::KeypadModifier);
    f.press(Qt::Key_Delete, Qt::KeypadModifier);
    QCOMPARE(f.calls.size(), 2);
}

void tst_PaneKeys::countsCommitsAsTyping()
{
    KeysFixture &f = *fixture_;
    f.commit(QStringLiteral("\u00E9"));
    QTest::keyClicks(f.source, QStringLiteral("a"));
    f.commit(QStringLiteral("\u00E8"));
    QCOMPARE(f.calls, {QStringLiteral("1")});
    f.press(Qt::Key_Backspace);
    f.commit(QStringLiteral("\u00E8"));
    QCOMPARE(f.calls.size(), 3);
    QCOMPARE(f.source->Text(), QStringLiteral("\u00E9a\u00E8"));
}

void tst_PaneKeys::recordsWhatIsTypedWithAlt()
{
    KeysFixture &f = *fixture_;
    QTest::sendKeyEvent(QTest::Press, f.source, Qt::Key_Q, QStringLiteral("@"), Qt::AltModifier);
    QTest::sendKeyEvent(QTest::Press, f.source, Qt::Key_E, QStringLiteral("\u20AC"),
                        Qt::ControlModifier | Qt::AltModifier);
    QCOMPARE(f.source->Text(), QStringLiteral("@\u20AC"));
    QCOMPARE(f.calls, {QStringLiteral("1")});
}

void tst_PaneKeys::recordsEveryEditingKey_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Ctrl+Backspace") << int(Qt::Key_Backspace);
    QTest::newRow("Ctrl+Delete") << int(Qt::Key_Delete);
}

void tst_PaneKeys::recordsEveryEditingKey()
{
    QFETCH(const int, key);
    KeysFixture &f = *fixture_;
    f.source->setText(QStringLiteral("one two three four five six"));
    f.source->setSelStart(14);
    const int length = f.source->TextLength();
    f.press(key, Qt::ControlModifier);
    QVERIFY(f.source->TextLength() < length);
    f.press(key, Qt::ControlModifier);
    QTest::keyClicks(f.source, QStringLiteral("a"));
    QCOMPARE(f.calls, QStringList(3, QStringLiteral("1")));
}

void tst_PaneKeys::recordsEveryDrop()
{
    KeysFixture &f = *fixture_;
    QTest::keyClicks(f.source, QStringLiteral("a"));
    QMimeData data;
    data.setText(QStringLiteral("dropped "));
    const auto drop = [&] {
        const QPoint start = f.source->cursorRect().center();
        QDragEnterEvent enter(start, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(f.source->viewport(), &enter);
        QDragMoveEvent move(start, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(f.source->viewport(), &move);
        QDropEvent event(start, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(f.source->viewport(), &event);
    };
    drop();
    drop();
    QVERIFY(f.source->Text().contains(QStringLiteral("dropped")));
    QCOMPARE(f.calls.size(), 3);
    QTest::keyClicks(f.source, QStringLiteral("a"));
    QCOMPARE(f.calls.size(), 4);
}

void tst_PaneKeys::runsCommands_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("call");
    const int control = Qt::ControlModifier;
    const int shift = Qt::ShiftModifier;
    const auto row = [](const char *name, Qt::Key key, int modifiers, const char *call) {
        QTest::newRow(name) << int(key) << modifiers << QString::fromLatin1(call);
    };
    row("Ctrl+Z", Qt::Key_Z, control, "Undo1");
    row("Ctrl+Y", Qt::Key_Y, control, "Redo1");
    row("Ctrl+X", Qt::Key_X, control, "Cut1");
    row("Ctrl+C", Qt::Key_C, control, "Copy1");
    row("Ctrl+V", Qt::Key_V, control, "Paste1");
    row("Ctrl+A", Qt::Key_A, control, "SelectAll1");
    row("Ctrl+Tab", Qt::Key_Tab, control, "otherPane1");
    row("Shift+Delete", Qt::Key_Delete, shift, "Cut1");
    row("Shift+Insert", Qt::Key_Insert, shift, "Paste1");
    row("Ctrl+Insert", Qt::Key_Insert, control, "Copy1");
    row("Shift+Delete of the keypad", Qt::Key_Delete, shift | Qt::KeypadModifier, "Cut1");
    row("Cut", Qt::Key_Cut, 0, "Cut1");
    row("Paste", Qt::Key_Paste, 0, "Paste1");
}

void tst_PaneKeys::runsCommands()
{
    QFETCH(const int, key);
    QFETCH(const int, modifiers);
    QFETCH(const QString, call);
    KeysFixture &f = *fixture_;
    f.source->setText(QStringLiteral("abc def"));
    f.source->setSelStart(1);
    f.source->setSelLength(3);
    QKeyEvent event(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers));
    QCoreApplication::sendEvent(f.source, &event);
    QCOMPARE(f.calls, {call});
    QCOMPARE(f.source->Text(), QStringLiteral("abc def"));
    QCOMPARE(f.source->SelLength(), 3);
}

void tst_PaneKeys::showsTheErrorsOfCommands()
{
    PanesFixture panes;
    KeysFixture &journal = *fixture_;
    PaneCommands commands;
    commands.Undo = [](PaneCode) { throw RuntimeError(ErrorNumber::Overflow); };
    PaneKeys keys(panes.window, journal, commands);
    keys.watch(*panes.source, PaneCode::Source);
    MessageBoxes boxes;
    QTest::keyClick(panes.source, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(boxes.seen().size(), 1U);
    QCOMPARE(boxes.seen()[0].text, QStringLiteral("Run-time error '6':\n\nOverflow"));
}

QTEST_MAIN(tst_PaneKeys)
#include "tst_panekeys.moc"
