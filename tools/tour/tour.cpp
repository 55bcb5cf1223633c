// Walks through every window of the real program, as its user would, and stores a picture of each.
//
//   tour FOLDER [--dark] [--help-pictures]
//
// --dark shows the windows on a dark desktop; --help-pictures takes only the pictures that the help
// shows. QT_SCALE_FACTOR sets the scale.

#include "Camera.h"

#include "about/frmSplash.h"
#include "app/Form1.h"
#include "app/Program.h"
#include "app/ToolbarCombo.h"
#include "help/HelpCommands.h"
#include "platform/FileRegistryStore.h"
#include "platform/RegistryFunctions.h"
#include "platform/RichTextBox.h"
#include "platform/RunCommand.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QRadioButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>
#include <cstdio>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto Title = "The Ferry"_L1;
constexpr auto Verse = "\r\n"
                       "Three lamps burned late beside the quiet water,\r\n"
                       "and one by one the boats came home to land;\r\n"
                       "the ferryman sat singing to his daughter,\r\n"
                       "and drew the letters with her in the sand."_L1;

void useDarkPalette()
{
    QPalette dark(QColor(0x35, 0x35, 0x35));
    dark.setColor(QPalette::Base, QColor(0x23, 0x23, 0x23));
    dark.setColor(QPalette::AlternateBase, QColor(0x2d, 0x2d, 0x2d));
    dark.setColor(QPalette::Highlight, QColor(0x2a, 0x72, 0xb5));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    dark.setColor(QPalette::Link, QColor(0x6c, 0xb4, 0xf5));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(QPalette::Disabled, role, QColor(0x8a, 0x8a, 0x8a));
    dark.setColor(QPalette::PlaceholderText, QColor(0x9a, 0x9a, 0x9a));
    dark.setColor(QPalette::ToolTipBase, QColor(0x23, 0x23, 0x23));
    dark.setColor(QPalette::ToolTipText, Qt::white);
    QApplication::setPalette(dark);
}

/// The folders become known one after the other, until that which is chosen is in sight.
void waitForFolders(QWidget &dialog)
{
    const auto &folders = *dialog.findChild<QTreeView *>("Dir1"_L1);
    const auto isInSight = [&folders] {
        const QRect place = folders.visualRect(folders.currentIndex());
        return !place.isEmpty() && folders.viewport()->rect().contains(place.center());
    };
    if (!QTest::qWaitFor(isInSight))
        std::fputs("The chosen folder is not in sight.\n", stderr);
}

class Tour
{
public:
    Tour(Program &program, Camera &camera) : program_(program), camera_(camera) {}

    void write();
    void helpPictures();
    void everything();

private:
    [[nodiscard]] Form1 &form() { return program_.form(); }
    [[nodiscard]] QAction &action(QLatin1StringView name) { return form().commands().action(name); }
    [[nodiscard]] auto triggering(QLatin1StringView name)
    {
        return [this, name] { action(name).trigger(); };
    }
    [[nodiscard]] static QWidget *window(QLatin1StringView name);
    template<typename Control>
    [[nodiscard]] static Control &find(const QWidget &window, QLatin1StringView name)
    {
        return *window.findChild<Control *>(name);
    }

    void choose(PaneCode pane);
    void menus();
    void find(QLatin1StringView picture, QLatin1StringView command);
    void calculator(QLatin1StringView picture, int tab);
    void modes();
    void paragraph();
    void preferences();
    void specialCharacters();
    void help();
    void messages();

    Program &program_;
    Camera &camera_;
};

QWidget *Tour::window(QLatin1StringView name)
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == name && widget->isVisible())
            return widget;
    }
    qFatal("%s is not open", name.data());
}

void Tour::write()
{
    const FormControls &controls = form().controls();
    form().activateWindow();
    controls.cboModeName->setFocus();
    QTest::keyClicks(controls.cboModeName, u"English"_s);
    QTest::keyClick(controls.cboModeName, Qt::Key_Return);
    controls.rtbRoman->setText(Title + Verse);
    action("mnuTTranscribe"_L1).trigger();
    for (RichTextBox *pane : {controls.rtbRoman, controls.rtbTengwar}) {
        pane->setFocus();
        QCoreApplication::processEvents();
        pane->setSelStart(0);
        pane->setSelLength(int(pane->Text().indexOf(u'\r')));
        action("mnuFSBold"_L1).trigger();
        action("mnuFACenter"_L1).trigger();
        pane->setSelStart(0);
        pane->setSelLength(0);
    }
    choose(PaneCode::Source);
}

void Tour::choose(PaneCode pane)
{
    form().activateWindow();
    form().pane(pane)->setFocus();
    QCoreApplication::processEvents();
}

void Tour::menus()
{
    for (QMenu *menu : form().findChildren<QMenu *>()) {
        if (menu->objectName().startsWith("mnu"_L1))
            camera_.takeMenu(u"menu-"_s + menu->objectName(), form(), *menu);
    }
    form().controls().cboModeName->showPopup();
    camera_.take(u"list-of-modes"_s, form());
    form().controls().cboModeName->hidePopup();
    RichTextBox &pane = *form().controls().rtbRoman;
    Q_EMIT pane.customContextMenuRequested(QPoint(60, 60));
    camera_.take(u"context-menu"_s, form());
    QApplication::activePopupWidget()->close();
}

void Tour::find(QLatin1StringView picture, QLatin1StringView command)
{
    choose(PaneCode::Source);
    action(command).trigger();
    QWidget &dialog = *window("frmFind"_L1);
    find<QLineEdit>(dialog, "txtRomanSearch"_L1).setText(u"water"_s);
    find<QRadioButton>(dialog, "optTengwarSearch"_L1).click();
    find<QLineEdit>(dialog, "txtRomanReplace"_L1).setText(u"river"_s);
    find<QRadioButton>(dialog, "optTengwarReplace"_L1).click();
    camera_.take(picture, dialog);
    dialog.close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Tour::calculator(QLatin1StringView picture, int tab)
{
    camera_.takeModal(picture, triggering("mnuINumerical"_L1), [tab](QWidget &dialog) {
        find<QRadioButton>(dialog, "optBase_1"_L1).click();
        auto &number = find<QLineEdit>(dialog, "txtDecimal"_L1);
        number.setFocus();
        number.selectAll();
        QTest::keyClicks(&number, u"1954"_s);
        find<QTabWidget>(dialog, "TabStrip1"_L1).setCurrentIndex(tab);
        if (tab == 1)
            find<QListWidget>(dialog, "lstListItems"_L1).setCurrentRow(2);
    });
}

void Tour::modes()
{
    camera_.takeModal(u"modes"_s, triggering("mnuTMode"_L1));
}

void Tour::paragraph()
{
    camera_.takeModal(u"paragraph"_s, triggering("mnuFParagraph"_L1), [](QWidget &dialog) {
        find<QLineEdit>(dialog, "txtFirstLineIndent"_L1).setText(u"10.0"_s);
        find<QLineEdit>(dialog, "txtLeftIndent"_L1).setText(u"-5.0"_s);
    });
}

void Tour::preferences()
{
    camera_.takeModal(u"preferences"_s, triggering("mnuEPreferences"_L1), [](QWidget &dialog) {
        // where this copy of the program lies is nothing to show
        find<QLineEdit>(dialog, "txtModeLocation"_L1).setText(u"/usr/lib/quillon/Modes"_s);
        find<QRadioButton>(dialog, "optUndefinedTranscribe"_L1).click();
        find<QLineEdit>(dialog, "txtCharNo"_L1).setText(u"¶"_s);
        find<QLineEdit>(dialog, "txtModeLocation"_L1).setFocus();
    });
}

void Tour::specialCharacters()
{
    choose(PaneCode::Target);
    camera_.takeModal(u"special-characters"_s, triggering("mnuISpecialCharacters"_L1),
                      [](QWidget &dialog) {
                          auto &grid = find<QWidget>(dialog, "grdChars"_L1);
                          grid.setFocus();
                          QTest::keyClicks(&grid, u"h"_s);
                      });
    choose(PaneCode::Source);
}

void Tour::helpPictures()
{
    camera_.take(u"window"_s, form());
    find("replace"_L1, "mnuEReplace"_L1);
    modes();
    paragraph();
    preferences();
    calculator("calculator-numerals"_L1, 0);
    calculator("calculator-items"_L1, 1);
    specialCharacters();
}

void Tour::help()
{
    action("mnuHContents"_L1).trigger();
    QWidget &help = *window("frmHelp"_L1);
    camera_.take(u"help"_s, help);
    auto &contents = find<QListWidget>(help, "lstContents"_L1);
    for (int page = 1; page < contents.count(); ++page) {
        contents.setCurrentRow(page);
        camera_.take(u"help-%1"_s.arg(page, 2, 10, QLatin1Char('0')), help);
    }
    auto &search = find<QLineEdit>(help, "txtSearch"_L1);
    search.setFocus();
    QTest::keyClicks(&search, u"undo step"_s);
    QTest::keyClick(&search, Qt::Key_Return);
    camera_.take(u"help-search"_s, help);
    search.setText(u"nowhere"_s);
    camera_.take(u"help-nothing-found"_s, help);
    help.close();
}

void Tour::messages()
{
    SharedState &state = program_.state();
    choose(PaneCode::Source);
    QTest::keyClicks(form().controls().rtbRoman, u"O "_s);
    camera_.takeModal(u"message-question"_s, triggering("mnuFNew"_L1));
    camera_.takeModal(u"message-warning"_s, triggering("mnuTAutoTranscribe"_L1));
    state.Settings.UndefinedText = u"?"_s;
    // the menu enables its commands for what the settings say when it opens
    camera_.takeMenu(u"menu-with-unknown"_s, form(), find<QMenu>(form(), "mnuTengwar"_L1));
    camera_.takeModal(u"message-information"_s, triggering("mnuTFindNext"_L1));
    state.HelpFile = u"/usr/lib/quillon/Quillon.hlp"_s;
    if (!QFile::exists(state.HelpFile))
        camera_.takeModal(u"message-critical"_s,
                          [this] { HelpCommands(program_.state(), form()).showContents(); });
    camera_.takeModal(u"message-error"_s,
                      [this] { showRuntimeError(&form(), RuntimeError(ErrorNumber::Overflow)); });
}

void Tour::everything()
{
    camera_.take(u"Form1"_s, form());
    menus();
    find("frmFind"_L1, "mnuEFind"_L1);
    helpPictures();
    camera_.takeModal(u"frmPreferences"_s, triggering("mnuEPreferences"_L1),
                      [this](QWidget &dialog) {
                          auto &browse = find<QAbstractButton>(dialog, "cmdBrowseMode"_L1);
                          camera_.takeModal(
                              u"frmBrowse"_s, [&browse] { browse.click(); }, waitForFolders);
                      });
    camera_.takeModal(u"frmAbout"_s, triggering("mnuHAbout"_L1));
    camera_.takeModal(u"font"_s, triggering("mnuFFont"_L1));
    form().controls().rtbRoman->setTag({}); // nothing to be asked about
    camera_.takeModal(u"open"_s, triggering("mnuFOpen"_L1));
    camera_.takeModal(u"save-as"_s, triggering("mnuFSaveAs"_L1));
    camera_.takeModal(u"print"_s, triggering("mnuFPrint"_L1));
    help();
    messages();
    form().resize(480, 320);
    camera_.take(u"Form1-small"_s, form());
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QStringList arguments = QCoreApplication::arguments();
    const bool isDark = arguments.removeOne(u"--dark"_s);
    const bool isForHelp = arguments.removeOne(u"--help-pictures"_s);
    if (arguments.size() != 2 || !QDir().mkpath(arguments[1])) {
        std::fputs("usage: tour FOLDER [--dark] [--help-pictures]\n", stderr);
        return 2;
    }
    QApplication::setStyle(u"Fusion"_s);
    if (isDark)
        useDarkPalette();
    Camera camera(QDir(arguments[1]), isForHelp ? Colours::Few : Colours::All);
    if (!isForHelp) {
        frmSplash splash;
        splash.show();
        camera.take(u"frmSplash"_s, splash);
    }
    const QTemporaryDir settings;
    FileRegistryStore store(settings.filePath(u"user"_s), settings.filePath(u"system"_s));
    RegistryFunctions registry(store);
    Program program(registry, QStringLiteral(QUILLON_PROGRAM_FOLDER),
                    QStringLiteral(QUILLON_PROGRAM_FOLDER "/Fonts"));
    if (!program.Main())
        return EXIT_FAILURE;
    program.form().resize(880, 480);
    program.form().restoreSplit(program.form().innerWidth() / 2);
    Tour tour(program, camera);
    tour.write();
    isForHelp ? tour.helpPictures() : tour.everything();
    return camera.isComplete() ? EXIT_SUCCESS : EXIT_FAILURE;
}
