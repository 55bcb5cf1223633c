#include "app/MenuTable.h"
#include "support/FormFixture.h"

using namespace Qt::Literals::StringLiterals;

/// Each key combination that a menu shows acts exactly once.
class tst_Shortcuts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void actOnce_data();
    void actOnce();
    void paneKeys_data();
    void paneKeys();
};

namespace {

bool isPaneKey(const QKeySequence &shortcut)
{
    for (const char *key : {"Ctrl+Z", "Ctrl+Y", "Ctrl+X", "Ctrl+C", "Ctrl+V", "Ctrl+A"}) {
        if (shortcut == QKeySequence(QString::fromLatin1(key)))
            return true;
    }
    return false;
}

void addRows(bool ofPane)
{
    QTest::addColumn<QString>("shortcut");
    for (const MenuEntry &entry : menuTable()) {
        const QKeySequence shortcut{QString(entry.shortcut)};
        if (!shortcut.isEmpty() && isPaneKey(shortcut) == ofPane)
            QTest::newRow(entry.name.data()) << QString(entry.shortcut);
    }
}

bool isModifier(int key)
{
    return key == Qt::Key_Control || key == Qt::Key_Shift;
}

void press(QWidget *receiver, const QString &shortcut)
{
    const QKeyCombination keys = QKeySequence(shortcut)[0];
    QTest::keyClick(receiver, keys.key(), keys.keyboardModifiers());
}

} // namespace

void tst_Shortcuts::actOnce_data()
{
    addRows(false);
}

void tst_Shortcuts::actOnce()
{
    QFETCH(QString, shortcut);
    FormFixture fixture;
    auto *pane = fixture.find<RichTextBox>("rtbRoman");
    pane->setText(u"two words"_s);
    pane->setSelStart(4);
    int runs = 0;
    QObject::connect(pane, &RichTextBox::keyDown, pane,
                     [&runs](const KeyPress &key) { runs += isModifier(key.key) ? 0 : 1; });
    QAction *item = fixture.action(QTest::currentDataTag());
    item->setEnabled(false);
    press(pane, shortcut);
    QCOMPARE(runs, 0);
    QCOMPARE(pane->Text(), u"two words"_s);
    QCOMPARE(pane->SelStart(), 4);
    QCOMPARE(pane->SelLength(), 0);

    item->disconnect();
    fixture.form.commands().connect({QLatin1StringView(QTest::currentDataTag())},
                                    [&runs] { ++runs; });
    press(pane, shortcut);
    QCOMPARE(runs, 1);
    press(fixture.find("cboModeName"), shortcut);
    QCOMPARE(runs, 2);
    QCOMPARE(pane->Text(), u"two words"_s);
    QCOMPARE(pane->SelStart(), 4);
}

void tst_Shortcuts::paneKeys_data()
{
    addRows(true);
}

void tst_Shortcuts::paneKeys()
{
    QFETCH(QString, shortcut);
    FormFixture fixture;
    auto *pane = fixture.find<RichTextBox>("rtbTengwar");
    pane->setFocus();
    int handled = 0;
    int triggered = 0;
    QObject::connect(pane, &RichTextBox::keyDown, pane, [&handled](KeyPress &key) {
        handled += isModifier(key.key) ? 0 : 1;
        key.swallowed = true;
    });
    const char *name = QTest::currentDataTag();
    press(pane, shortcut);
    QCOMPARE(handled, 1);

    fixture.form.commands().connect({QLatin1StringView(name)}, [&triggered] { ++triggered; });
    press(pane, shortcut);
    QCOMPARE(handled, 2);
    QCOMPARE(triggered, 0);
    fixture.action(name)->trigger();
    QCOMPARE(triggered, 1);
}

QTEST_MAIN(tst_Shortcuts)
#include "tst_shortcuts.moc"
