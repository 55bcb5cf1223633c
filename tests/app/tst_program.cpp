#include "about/frmSplash.h"
#include "app/CaptionLabel.h"
#include "app/Form1.h"
#include "app/Program.h"
#include "app/Splitter.h"
#include "app/ToolbarCombo.h"
#include "editor/SettingKeys.h"
#include "platform/MessageBox.h"
#include "platform/RichTextBox.h"
#include "support/FileDialogs.h"
#include "support/MessageBoxes.h"
#include "support/RecordingProgram.h"
#include "support/RegistryFolder.h"

#include <QScreen>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// The program from its start to its end, over a registry of its own.
class tst_Program : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void firstStart();
    void storedWindow();
    void storedStates_data();
    void storedStates();
    void centredRuler_data();
    void centredRuler();
    void maximisedRulerIsKept();
    void settingsAreRead();
    void missingSettingsHaveDefaults();
    void leftGeometryAloneCountsForNothing();
    void brokenWindowNumbers_data();
    void brokenWindowNumbers();
    void numbersBeyondRangeStopTheStart_data();
    void numbersBeyondRangeStopTheStart();
    void windowOffEveryScreen();
    void bars_data();
    void bars();
    void whatIsStoredAtTheEnd();
    void maximisedWindowsKeepTheirNormalGeometry();
    void largeWindowsAreStoredSmaller();
    void unchangedFromStartToStart();
    void locatedEditorIsStoredLast();
    void editorSetByHandIsNotWritten();

private:
    void store(const char *name, const QVariant &value);
    [[nodiscard]] QString stored(const QString &key, const char *name) const;
    Form1 &start();
    void end();

    std::unique_ptr<RegistryFolder> registry_;
    std::unique_ptr<Program> program_;
};

namespace {

constexpr int TwipsPerPixel = 15;

QString text(const char *name)
{
    return QString::fromLatin1(name);
}

/// Writes down, in order, what is stored by way of it.
class WatchedStore final : public RegistryStore
{
public:
    explicit WatchedStore(RegistryStore &store) : store_(store) {}

    [[nodiscard]] const QStringList &written() const { return written_; }

    [[nodiscard]] bool contains(const RegistryKey &key) const override
    {
        return store_.contains(key);
    }
    [[nodiscard]] std::optional<RegistryValue> value(const RegistryKey &key,
                                                     const QString &name) const override
    {
        return store_.value(key, name);
    }
    bool createKey(const RegistryKey &key) override { return store_.createKey(key); }
    bool setValue(const RegistryKey &key, const QString &name, const RegistryValue &value) override
    {
        written_ += name;
        return store_.setValue(key, name, value);
    }

private:
    RegistryStore &store_;
    QStringList written_;
};

} // namespace

void tst_Program::init()
{
    registry_ = std::make_unique<RegistryFolder>();
    for (const QString &name : {text("Source.tpl"), text("Target.tpl")})
        QVERIFY(
            QFile::copy(text(QUILLON_PROGRAM_FOLDER "/") + name, registry_->folder.filePath(name)));
}

void tst_Program::cleanup()
{
    program_.reset();
    QVERIFY(!QGuiApplication::overrideCursor());
}

void tst_Program::store(const char *name, const QVariant &value)
{
    registry_->settings.write(SettingKey::Window, text(name), value);
}

QString tst_Program::stored(const QString &key, const char *name) const
{
    return registry_->settings.text(key, text(name));
}

Form1 &tst_Program::start()
{
    program_ = std::make_unique<Program>(registry_->registry, registry_->folder.path(),
                                         registry_->folder.filePath(u"Fonts"_s));
    if (!program_->Main())
        qFatal("The program did not start.");
    return program_->form();
}

void tst_Program::end()
{
    QTimer::singleShot(0, &program_->form(), &QWidget::close);
    QCOMPARE(QApplication::exec(), 0);
}

void tst_Program::firstStart()
{
    const Form1 &form = start();
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    QCOMPARE(form.pos(), QPoint(screen.width() / 6, screen.height() / 6));
    QCOMPARE(form.size(), QSize(qRound(screen.width() / 1.5), qRound(screen.height() / 1.5)));
    QVERIFY(form.isVisible());
    QCOMPARE(form.windowTitle(), programTitle());
    QVERIFY(form.controls().Toolbar1->isVisible());
    QVERIFY(form.controls().tbrFormat->isVisible());
    QVERIFY(form.controls().StatusBar1->isVisible());
    const Splitter &splitter = *form.controls().imgRuler;
    QVERIFY(qAbs(splitter.x() - (form.width() - splitter.width()) / 2) <= 1);
    QVERIFY(QTest::qWaitForWindowActive(&program_->form()));
    QVERIFY(form.controls().rtbRoman->hasFocus());
    QVERIFY(form.controls().rtbRoman->Text().isEmpty());
    QVERIFY(stored(SettingKey::Root, "Version").count(u'.') == 2);
    for (const QWidget *window : QApplication::topLevelWidgets())
        QVERIFY(!qobject_cast<const frmSplash *>(window));
}

void tst_Program::storedWindow()
{
    store("Left", 1500);
    store("Top", 750);
    store("Width", 9000);
    store("Height", 6000);
    store("Ruler", 3001);
    const Form1 &form = start();
    QCOMPARE(form.pos(), QPoint(100, 50));
    QCOMPARE(form.size(), QSize(600, 400));
    QCOMPARE(form.controls().imgRuler->Left(), 3001);
    QCOMPARE(form.controls().imgRuler->x(), 200);
}

void tst_Program::storedStates_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<int>("expected");
    QTest::newRow("missing") << QString() << int(Qt::WindowNoState);
    QTest::newRow("normal") << u"0"_s << int(Qt::WindowNoState);
    QTest::newRow("minimised") << u"1"_s << int(Qt::WindowMinimized);
    QTest::newRow("maximised") << u"2"_s << int(Qt::WindowMaximized);
    QTest::newRow("unknown") << u"7"_s << int(Qt::WindowNoState);
    QTest::newRow("negative") << u"-1"_s << int(Qt::WindowNoState);
    QTest::newRow("no number") << u"big"_s << int(Qt::WindowNoState);
}

void tst_Program::storedStates()
{
    QFETCH(QString, state);
    QFETCH(int, expected);
    if (!state.isEmpty())
        store("State", state);
    const Form1 &form = start();
    QCOMPARE(int(form.windowState() & (Qt::WindowMinimized | Qt::WindowMaximized)), expected);
}

void tst_Program::centredRuler_data()
{
    QTest::addColumn<QString>("ruler");
    for (const char *ruler : {"0", "-3000", "", "left"})
        QTest::newRow(ruler) << text(ruler);
}

void tst_Program::centredRuler()
{
    QFETCH(QString, ruler);
    store("Ruler", ruler);
    const Form1 &form = start();
    QVERIFY(qAbs(2 * form.controls().imgRuler->x() + 6 - form.width()) <= 2);
}

void tst_Program::maximisedRulerIsKept()
{
    const int wide = QGuiApplication::primaryScreen()->availableGeometry().width() * TwipsPerPixel;
    store("Width", 3000);
    store("Height", 3000);
    store("State", 2);
    store("Ruler", wide - 1500);
    const Form1 &form = start();
    QTRY_COMPARE(form.controls().imgRuler->Left(), wide - 1500);
    end();
    QCOMPARE(stored(SettingKey::Window, "Ruler"), QString::number(wide - 1500));
    QCOMPARE(stored(SettingKey::Window, "Width"), u"3000"_s);
}

void tst_Program::brokenWindowNumbers_data()
{
    QTest::addColumn<QString>("width");
    for (const char *width : {"0", "-9000", "wide", " "})
        QTest::newRow(width) << text(width);
}

void tst_Program::settingsAreRead()
{
    StoredSettings &settings = registry_->settings;
    settings.write(SettingKey::Transcription, u"UndefinedAlert"_s, true);
    settings.write(SettingKey::Transcription, u"UndefinedTranscribe"_s, u"?"_s);
    settings.write(SettingKey::Transcription, u"ClearTargetPane"_s, true);
    settings.write(SettingKey::Mode, u"Path"_s, u"/some/modes"_s);
    settings.write(SettingKey::Mode, u"EditorPath"_s, u"/some/editor"_s);
    settings.write(SettingKey::General, u"Unit"_s, u"in"_s);
    start();
    const Settings &read = program_->state().Settings;
    QVERIFY(read.UndefinedAlert);
    QCOMPARE(read.UndefinedText, u"?"_s);
    QVERIFY(read.ClearTargetPane);
    QCOMPARE(read.ModePath, u"/some/modes"_s);
    QCOMPARE(read.EditorPath, u"/some/editor"_s);
    QCOMPARE(read.StandardUnit, u"in"_s);
    QCOMPARE(read.UnitFactor, 1440.0);
}

void tst_Program::missingSettingsHaveDefaults()
{
    registry_->settings.write(SettingKey::General, u"Unit"_s, u"px"_s);
    start();
    const Settings &read = program_->state().Settings;
    QVERIFY(!read.UndefinedAlert);
    QCOMPARE(read.UndefinedText, QString());
    QVERIFY(!read.ClearTargetPane);
    QCOMPARE(read.ModePath, registry_->folder.path() + u"/Modes"_s);
    QCOMPARE(read.EditorPath, registry_->folder.path() + u"/ModeSmith.exe"_s);
    QCOMPARE(read.StandardUnit, u"mm"_s); // pixels last for the run that chose them
    QCOMPARE(read.UnitFactor, 56.7);
}

void tst_Program::leftGeometryAloneCountsForNothing()
{
    store("Left", u"40000"_s);
    const Form1 &form = start();
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    QCOMPARE(form.width(), qRound(screen.width() / 1.5));
}

void tst_Program::brokenWindowNumbers()
{
    QFETCH(QString, width);
    store("Width", width);
    store("Height", 6000);
    const Form1 &form = start();
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    QCOMPARE(form.width(), qRound(screen.width() / 1.5));
}

void tst_Program::numbersBeyondRangeStopTheStart_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const char *name : {"Left", "Top", "Width", "Height", "State", "Ruler"})
        QTest::newRow(name) << QByteArray(name);
}

void tst_Program::numbersBeyondRangeStopTheStart()
{
    QFETCH(QByteArray, name);
    for (const char *filled : {"Left", "Top", "Width", "Height"})
        store(filled, 3000);
    store(name.constData(), u"40000"_s);
    const MessageBoxes boxes;
    Program program(registry_->registry, registry_->folder.path(), {});
    QVERIFY(!program.Main());
    QCOMPARE(boxes.seen().size(), 1U);
    QCOMPARE(boxes.seen()[0].title, programTitle());
    const QString shown = boxes.seen()[0].text;
    QVERIFY2(shown.startsWith(u"Run-time error '6':\n\nOverflow"), qPrintable(shown));
    QVERIFY2(shown.contains(text(name.constData())) && shown.contains(u"40000"), qPrintable(shown));
}

void tst_Program::windowOffEveryScreen()
{
    store("Left", 32000);
    store("Top", -32000);
    store("Width", 6000);
    store("Height", 4500);
    const Form1 &form = start();
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    constexpr int Frame = 8;
    QVERIFY(screen.adjusted(0, 0, Frame, Frame).contains(form.geometry()));
    QCOMPARE(form.size(), QSize(400, 300));
}

void tst_Program::bars_data()
{
    QTest::addColumn<QStringList>("values"); // "Toolbar1", "Toolbar2", "Statusbar1"
    QTest::addColumn<QStringList>("shown");
    const QString on = u"True"_s;
    const QString off = u"False"_s;
    QTest::newRow("nothing stored") << QStringList{{}, {}, {}} << QStringList{on, on, on};
    QTest::newRow("all on") << QStringList{on, on, on} << QStringList{on, on, on};
    QTest::newRow("all off") << QStringList{off, off, off} << QStringList{off, off, off};
    QTest::newRow("mixed") << QStringList{off, on, off} << QStringList{off, on, off};
    QTest::newRow("the first decides whether the others count")
        << QStringList{{}, off, off} << QStringList{on, on, on};
    QTest::newRow("missing ones are off") << QStringList{on, {}, {}} << QStringList{on, off, off};
}

void tst_Program::bars()
{
    QFETCH(QStringList, values);
    QFETCH(QStringList, shown);
    const char *const names[] = {"Toolbar1", "Toolbar2", "Statusbar1"};
    for (int i = 0; i < 3; ++i) {
        if (!values[i].isEmpty())
            store(names[i], values[i]);
    }
    const FormControls &controls = start().controls();
    const QWidget *bars[] = {controls.Toolbar1, controls.tbrFormat, controls.StatusBar1};
    for (int i = 0; i < 3; ++i)
        QCOMPARE(bars[i]->isVisible() ? u"True"_s : u"False"_s, shown[i]);
    QCOMPARE(controls.lblRomanCaption->y(),
             (controls.Toolbar1->isVisible() ? controls.Toolbar1->height() : 0) +
                 (controls.tbrFormat->isVisible() ? controls.tbrFormat->height() : 0));
}

void tst_Program::whatIsStoredAtTheEnd()
{
    registry_->settings.write(SettingKey::Mode, u"CurrentMode"_s, u"Test Mode"_s);
    registry_->settings.write(SettingKey::Fonts, u"GenericTengwarFont"_s, u"Some Tengwar"_s);
    Form1 &form = start();
    form.move(30, 20);
    form.resize(500, 400);
    form.controls().tbrFormat->hide();
    end();
    QCOMPARE(stored(SettingKey::Mode, "CurrentMode"), u"Test Mode"_s);
    QCOMPARE(stored(SettingKey::Window, "State"), u"0"_s);
    QCOMPARE(stored(SettingKey::Window, "Left"), u"450"_s);
    QCOMPARE(stored(SettingKey::Window, "Top"), u"300"_s);
    QCOMPARE(stored(SettingKey::Window, "Width"), u"7500"_s);
    QCOMPARE(stored(SettingKey::Window, "Height"), u"6000"_s);
    QCOMPARE(stored(SettingKey::Window, "Toolbar1"), u"True"_s);
    QCOMPARE(stored(SettingKey::Window, "Toolbar2"), u"False"_s);
    QCOMPARE(stored(SettingKey::Window, "Statusbar1"), u"True"_s);
    QVERIFY(!stored(SettingKey::Fonts, "GenericRomanFont").isEmpty());
    QCOMPARE(stored(SettingKey::Fonts, "GenericTengwarFont"), u"Some Tengwar"_s);
    QVERIFY(stored(SettingKey::Mode, "Path").isEmpty());
    QVERIFY(stored(SettingKey::General, "Unit").isEmpty());
}

void tst_Program::maximisedWindowsKeepTheirNormalGeometry()
{
    for (const char *name : {"Left", "Top"})
        store(name, 600);
    for (const char *name : {"Width", "Height"})
        store(name, 4500);
    start().showMaximized();
    end();
    QCOMPARE(stored(SettingKey::Window, "State"), u"2"_s);
    QCOMPARE(stored(SettingKey::Window, "Left"), u"600"_s);
    QCOMPARE(stored(SettingKey::Window, "Width"), u"4500"_s);
}

void tst_Program::largeWindowsAreStoredSmaller()
{
    Form1 &form = start();
    form.resize(3840, 2160);
    end();
    QCOMPARE(stored(SettingKey::Window, "Width"), u"32767"_s);
    QCOMPARE(stored(SettingKey::Window, "Height"), u"32400"_s);
    QCOMPARE(start().width(), 2184);
}

void tst_Program::unchangedFromStartToStart()
{
    QStringList windows;
    for (int run = 0; run < 3; ++run) {
        start();
        end();
        QString window;
        for (const char *name : {"Left", "Top", "Width", "Height", "Ruler", "State"})
            window += stored(SettingKey::Window, name) + u' ';
        windows += window;
    }
    QCOMPARE(windows[1], windows[0]);
    QCOMPARE(windows[2], windows[0]);
}

void tst_Program::locatedEditorIsStoredLast()
{
    QVERIFY(QDir(registry_->folder.path()).mkdir(u"elsewhere"_s));
    RecordingProgram editor(registry_->folder.filePath(u"elsewhere/ModeSmith.exe"_s));
    registry_->settings.write(SettingKey::Mode, u"CurrentMode"_s, u"Black Speech"_s);
    WatchedStore store(registry_->store);
    RegistryFunctions registry(store);
    program_ = std::make_unique<Program>(registry, registry_->folder.path(),
                                         registry_->folder.filePath(u"Fonts"_s));
    QVERIFY(program_->Main());
    {
        const MessageBoxes boxes({QMessageBox::Yes});
        const FileDialogs dialogs({{editor.path()}});
        program_->form().commands().action("mnuTRunModeSmith"_L1).trigger();
        QCOMPARE(boxes.seen().size(), 1U);
    }
    QTRY_VERIFY(editor.wasStarted());
    QVERIFY(stored(SettingKey::Mode, "EditorPath").isEmpty());
    end();
    QCOMPARE(store.written().last(), u"EditorPath"_s);
    QCOMPARE(stored(SettingKey::Mode, "EditorPath"), editor.path());

    editor.forget();
    start().commands().action("mnuTRunModeSmith"_L1).trigger();
    QTRY_VERIFY(editor.wasStarted());
    QCOMPARE(editor.commandLine(), (QStringList{editor.path(), u"Black"_s, u"Speech"_s}));
}

void tst_Program::editorSetByHandIsNotWritten()
{
    const RecordingProgram editor(registry_->folder.filePath(u"editor"_s));
    registry_->settings.write(SettingKey::Mode, u"EditorPath"_s, editor.path());
    WatchedStore store(registry_->store);
    RegistryFunctions registry(store);
    program_ = std::make_unique<Program>(registry, registry_->folder.path(),
                                         registry_->folder.filePath(u"Fonts"_s));
    QVERIFY(program_->Main());
    program_->form().commands().action("mnuTRunModeSmith"_L1).trigger();
    QTRY_VERIFY(editor.wasStarted());
    end();
    QVERIFY(store.written().contains(u"GenericTengwarFont"_s));
    QVERIFY(!store.written().contains(u"EditorPath"_s));
}

QTEST_MAIN(tst_Program)
#include "tst_program.moc"
