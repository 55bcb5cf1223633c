#include "support/FormFixture.h"

#include <QMenu>
#include <QMenuBar>
#include <QSet>

using namespace Qt::Literals::StringLiterals;

class tst_Menus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void captions();
    void names_data();
    void names();
    void everyItemHasANameOfItsOwn();
    void onlyConnectedItemsAreEnabled();
    void captionsHoldNoShortcuts();
    void shortcutsAreUnique();
    void viewMenuShowsWhatIsVisible();
    void viewMenuTogglesBars_data();
    void viewMenuTogglesBars();
    void paneMenuFollowsTheActivePane();
    void paneMenuFollowsTheCaptions();
    void exitCloses();
};

namespace {

QStringList linesOf(const QList<QAction *> &actions, int depth)
{
    QStringList lines;
    for (const QAction *action : actions) {
        const QString indent(2 * depth, u' ');
        lines += indent + (action->isSeparator() ? u"-"_s + action->text() : action->text());
        if (action->menu())
            lines += linesOf(action->menu()->actions(), depth + 1);
    }
    return lines;
}

constexpr auto Tree = R"(&File
  &New
  &Both new
  -
  &Open...
  -
  &Save
  Save &as...
  -
  &Print...
  -
  &Exit
&Edit
  &Undo
  &Redo
  -
  &Cut
  C&opy
  &Paste
  Cl&ear
  Select &all
  -
  &Find
  &Replace
  -
  &Preferences...
&View
  &Standard toolbar
  &Formatting toolbar
  S&tatus bar
&Insert
  &Numerical tengwar
  &Special characters
&Format
  &Font...
  &Paragraph...
  &Style
    &Bold
    &Italic
    &Underline
  &Char offset
    Su&perscript (+)
    &Normal
    Su&bscript (-)
  &Alignment
    &Left justify
    &Right justify
    &Center
  &Bulleted list
&Tengwar
  &Modes...
  &Transcribe
  &Auto transcribe
  -
  &Edit mode
  -
  Find &next unknown character
  Find &previous unknown character
  -
  Switch &line style
    Straight to &curled
    Curled to &straight
  Switch &s-curl style
    Standard to &looped
    Looped to &standard
&Pane
  &Source
  &Target
&Help
  &Contents
  -
  &About...)";

} // namespace

void tst_Menus::captions()
{
    const FormFixture fixture;
    const QStringList lines = linesOf(fixture.form.menuBar()->actions(), 0);
    QCOMPARE(lines.join(u'\n'), QString::fromLatin1(Tree));
}

void tst_Menus::names_data()
{
    QTest::addColumn<QString>("path");
    const auto row = [](const char *name, const char *path) {
        QTest::newRow(name) << QString::fromLatin1(path);
    };
    row("mnuFNew", "&File/&New");
    row("mnuFClearAll", "&File/&Both new");
    row("mnuFOpen", "&File/&Open...");
    row("mnuFSave", "&File/&Save");
    row("mnuFSaveAs", "&File/Save &as...");
    row("mnuFPrint", "&File/&Print...");
    row("mnuFExit", "&File/&Exit");
    row("mnuEUndo", "&Edit/&Undo");
    row("mnuERedo", "&Edit/&Redo");
    row("mnuECut", "&Edit/&Cut");
    row("mnuECopy", "&Edit/C&opy");
    row("mnuEPaste", "&Edit/&Paste");
    row("mnuEClear", "&Edit/Cl&ear");
    row("mnuESelectAll", "&Edit/Select &all");
    row("mnuEFind", "&Edit/&Find");
    row("mnuEReplace", "&Edit/&Replace");
    row("mnuEPreferences", "&Edit/&Preferences...");
    row("mnuVStandardToolbar", "&View/&Standard toolbar");
    row("mnuVFormattingToolbar", "&View/&Formatting toolbar");
    row("mnuVStatusBar", "&View/S&tatus bar");
    row("mnuINumerical", "&Insert/&Numerical tengwar");
    row("mnuISpecialCharacters", "&Insert/&Special characters");
    row("mnuFFont", "&Format/&Font...");
    row("mnuFParagraph", "&Format/&Paragraph...");
    row("mnuFSBold", "&Format/&Style/&Bold");
    row("mnuFSItalic", "&Format/&Style/&Italic");
    row("mnuFSUnderline", "&Format/&Style/&Underline");
    row("mnuFCSuper", "&Format/&Char offset/Su&perscript (+)");
    row("mnuFCNormal", "&Format/&Char offset/&Normal");
    row("mnuFCSub", "&Format/&Char offset/Su&bscript (-)");
    row("mnuFALeftJustify", "&Format/&Alignment/&Left justify");
    row("mnuFARightJustify", "&Format/&Alignment/&Right justify");
    row("mnuFACenter", "&Format/&Alignment/&Center");
    row("mnuFBulletedList", "&Format/&Bulleted list");
    row("mnuTMode", "&Tengwar/&Modes...");
    row("mnuTTranscribe", "&Tengwar/&Transcribe");
    row("mnuTAutoTranscribe", "&Tengwar/&Auto transcribe");
    row("mnuTRunModeSmith", "&Tengwar/&Edit mode");
    row("mnuTFindNext", "&Tengwar/Find &next unknown character");
    row("mnuTFindPrevious", "&Tengwar/Find &previous unknown character");
    row("mnuTSStraightToCurled", "&Tengwar/Switch &line style/Straight to &curled");
    row("mnuTSCurledToStraight", "&Tengwar/Switch &line style/Curled to &straight");
    row("mnuTSStandardToLooped", "&Tengwar/Switch &s-curl style/Standard to &looped");
    row("mnuTSLoopedToStandard", "&Tengwar/Switch &s-curl style/Looped to &standard");
    row("mnuPSource", "&Pane/&Source");
    row("mnuPTarget", "&Pane/&Target");
    row("mnuHContents", "&Help/&Contents");
    row("mnuHAbout", "&Help/&About...");
}

void tst_Menus::names()
{
    QFETCH(QString, path);
    const FormFixture fixture;
    const QAction *item = fixture.action(QTest::currentDataTag());
    QString found = item->text();
    const auto *menu = qobject_cast<QMenu *>(item->parent());
    for (; menu; menu = qobject_cast<QMenu *>(menu->parent()))
        found = menu->title() + u'/' + found;
    QCOMPARE(found, path);
}

void tst_Menus::everyItemHasANameOfItsOwn()
{
    const FormFixture fixture;
    QSet<QString> names;
    for (const QMenu *menu : fixture.form.menuBar()->findChildren<QMenu *>()) {
        if (menu->title().isEmpty())
            continue; // the menu bar's own, for what doesn't fit
        QVERIFY2(menu->objectName().startsWith(u"mnu"), qPrintable(menu->title()));
        for (const QAction *item : menu->actions()) {
            if (item->menu())
                continue;
            QVERIFY2(item->objectName().startsWith(u"mnu"), qPrintable(item->text()));
            QVERIFY2(!names.contains(item->objectName()), qPrintable(item->objectName()));
            names.insert(item->objectName());
        }
    }
    for (const char *menu : {"mnuFile", "mnuEdit", "mnuView", "mnuInsert", "mnuFormat",
                             "mnuTengwar", "mnuPane", "mnuHelp", "mnuFStyle", "mnuFCharOffset",
                             "mnuFAlignment", "mnuTSwitchLineStyle", "mnuTSwitchSCurlStyle"})
        QVERIFY2(fixture.form.findChild<QMenu *>(QLatin1StringView(menu)), menu);
    for (const char *line : {"mnuFLine1", "mnuTLine1", "mnuTLine2"})
        QVERIFY2(fixture.action(line)->isSeparator(), line);
}

void tst_Menus::onlyConnectedItemsAreEnabled()
{
    FormFixture fixture;
    QVERIFY(fixture.action("mnuFExit")->isEnabled());
    QAction *item = fixture.action("mnuFNew");
    QVERIFY(!item->isEnabled());
    int runs = 0;
    fixture.form.commands().connect({"mnuFNew"_L1}, [&runs] { ++runs; });
    QVERIFY(item->isEnabled());
    item->trigger();
    QCOMPARE(runs, 1);
}

void tst_Menus::captionsHoldNoShortcuts()
{
    const FormFixture fixture;
    for (const QAction *item : fixture.form.findChildren<QAction *>())
        QVERIFY2(!item->text().contains(u'\t'), qPrintable(item->text()));
    QCOMPARE(fixture.action("mnuFNew")->shortcut(), QKeySequence(u"Ctrl+N"_s));
    QCOMPARE(fixture.action("mnuERedo")->shortcut(), QKeySequence(u"Ctrl+Y"_s));
}

void tst_Menus::shortcutsAreUnique()
{
    const FormFixture fixture;
    QSet<QKeySequence> shortcuts;
    for (const QAction *item : fixture.form.findChildren<QAction *>()) {
        if (item->shortcut().isEmpty())
            continue;
        QVERIFY2(!shortcuts.contains(item->shortcut()), qPrintable(item->objectName()));
        shortcuts.insert(item->shortcut());
    }
    QVERIFY(shortcuts.size() > 15);
}

void tst_Menus::viewMenuShowsWhatIsVisible()
{
    FormFixture fixture;
    fixture.find("tbrFormat")->hide();
    Q_EMIT fixture.find<QMenu>("mnuView")->aboutToShow();
    QVERIFY(fixture.action("mnuVStandardToolbar")->isChecked());
    QVERIFY(!fixture.action("mnuVFormattingToolbar")->isChecked());
    QVERIFY(fixture.action("mnuVStatusBar")->isChecked());
}

void tst_Menus::viewMenuTogglesBars_data()
{
    QTest::addColumn<QByteArray>("bar");
    QTest::newRow("mnuVStandardToolbar") << QByteArray("Toolbar1");
    QTest::newRow("mnuVFormattingToolbar") << QByteArray("tbrFormat");
    QTest::newRow("mnuVStatusBar") << QByteArray("StatusBar1");
}

void tst_Menus::viewMenuTogglesBars()
{
    QFETCH(QByteArray, bar);
    const FormFixture fixture;
    const QWidget *pane = fixture.find("rtbRoman");
    const QWidget *switched = fixture.find(bar.constData());
    const int paneHeight = pane->height();
    const int barHeight = switched->height();
    QAction *item = fixture.action(QTest::currentDataTag());

    item->trigger();
    QVERIFY(!switched->isVisible());
    QCOMPARE(pane->height(), paneHeight + barHeight);
    item->trigger();
    QVERIFY(switched->isVisible());
    QCOMPARE(pane->height(), paneHeight);
    QCOMPARE(fixture.find("tbrFormat")->y(), fixture.find("Toolbar1")->height());
}

void tst_Menus::paneMenuFollowsTheActivePane()
{
    const FormFixture fixture;
    auto *menu = fixture.find<QMenu>("mnuPane");
    const QAction *source = fixture.action("mnuPSource");
    const QAction *target = fixture.action("mnuPTarget");

    fixture.action("mnuPTarget")->trigger();
    QVERIFY(fixture.find("rtbTengwar")->hasFocus());
    QCOMPARE(fixture.state.ActivePane, PaneCode::Target);
    Q_EMIT menu->aboutToShow();
    QVERIFY(!source->isChecked());
    QVERIFY(target->isChecked());

    fixture.action("mnuPSource")->trigger();
    QVERIFY(fixture.find("rtbRoman")->hasFocus());
    QCOMPARE(fixture.state.ActivePane, PaneCode::Source);
    Q_EMIT menu->aboutToShow();
    QVERIFY(source->isChecked());
    QVERIFY(!target->isChecked());
}

void tst_Menus::paneMenuFollowsTheCaptions()
{
    const FormFixture fixture;
    fixture.form.controls().lblTengwarCaption->setCaption(u"Target - Bilbo & Frodo.rtf"_s);
    QCOMPARE(fixture.action("mnuPTarget")->text(), u"&Target - Bilbo && Frodo.rtf"_s);
    QCOMPARE(fixture.action("mnuPSource")->text(), u"&Source"_s);
    fixture.form.controls().lblTengwarCaption->setCaption(u"Target"_s);
    QCOMPARE(fixture.action("mnuPTarget")->text(), u"&Target"_s);
}

void tst_Menus::exitCloses()
{
    FormFixture fixture;
    fixture.saveAnswer = SaveAnswer::Cancel;
    fixture.action("mnuFExit")->trigger();
    QVERIFY(fixture.form.isVisible());
    QCOMPARE(fixture.calls, QStringList{u"AskSaveChanges 3"_s});
    fixture.saveAnswer = SaveAnswer::Proceed;
    fixture.action("mnuFExit")->trigger();
    QVERIFY(!fixture.form.isVisible());
}

QTEST_MAIN(tst_Menus)
#include "tst_menus.moc"
