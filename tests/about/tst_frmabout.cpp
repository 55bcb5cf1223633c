#include "about/frmAbout.h"
#include "editor/Settings.h"
#include "support/MessageBoxes.h"
#include "support/ProjectVersion.h"
#include "support/RecordingProgram.h"
#include "support/RegistryFolder.h"

#include <QDir>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// The box as its user meets it, over a registry of its own.
class tst_frmAbout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void tellsNameVersionAndCopyright();
    void controls();
    void keysClose_data();
    void keysClose();
    void okCloses();
    void tabOrder();
    void startsTheProgramOfItsPath();
    void startsTheProgramInItsLocation();
    void pathGoesBeforeLocation();
    void tellsThatThereIsNone_data();
    void tellsThatThereIsNone();
    void failureIsARuntimeError();

private:
    template<typename Control> [[nodiscard]] Control *find(const char *name) const
    {
        auto *control = box_->findChild<Control *>(QLatin1StringView(name));
        if (control == nullptr)
            qFatal("there is no %s", name);
        return control;
    }
    void click(const char *button) { QTest::mouseClick(find<QPushButton>(button), Qt::LeftButton); }
    [[nodiscard]] QString path(const QString &name) const
    {
        return registry_->folder.filePath(name);
    }
    void storePath(const QString &program) const;
    void storeLocation(const QString &folder) const;
    void store(const QString &key, const QString &name, const QString &text) const;

    QWidget window_;
    Settings settings_;
    std::unique_ptr<RegistryFolder> registry_;
    std::unique_ptr<frmAbout> box_;
};

void tst_frmAbout::init()
{
    registry_ = std::make_unique<RegistryFolder>();
    settings_.GenericRomanFont = u"Some Font"_s;
    window_.show();
    box_ = std::make_unique<frmAbout>(settings_, registry_->registry, &window_);
    box_->open();
    QVERIFY(QTest::qWaitForWindowActive(box_.get()));
}

void tst_frmAbout::cleanup()
{
    box_.reset();
}

void tst_frmAbout::store(const QString &key, const QString &name, const QString &text) const
{
    QFile file(path(u"system.ini"_s));
    QVERIFY(file.open(QIODevice::Append));
    file.write(u"[%1]\n\"%2\" = \"%3\"\n"_s.arg(key, name, text).toUtf8());
}

void tst_frmAbout::storePath(const QString &program) const
{
    store(u"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO"_s, u"PATH"_s, program);
}

void tst_frmAbout::storeLocation(const QString &folder) const
{
    store(u"SOFTWARE\\Microsoft\\Shared Tools Location"_s, u"MSINFO"_s, folder);
}

void tst_frmAbout::tellsNameVersionAndCopyright()
{
    QCOMPARE(box_->windowTitle(), u"About Quillon"_s);
    QCOMPARE(find<QLabel>("lblTitle")->text(), u"Quillon"_s);
    QCOMPARE(find<QLabel>("lblVersion")->text(), u"Version "_s + projectVersion());
    QCOMPARE(find<QLabel>("lblDescription")->text(), projectCopyright());
    QCOMPARE(find<QLabel>("picIcon")->pixmap().deviceIndependentSize(), QSizeF(64, 64));
}

void tst_frmAbout::controls()
{
    QCOMPARE(box_->objectName(), u"frmAbout"_s);
    QCOMPARE(box_->parentWidget(), &window_);
    QCOMPARE(find<QPushButton>("cmdSysInfo")->text(), u"&System Info..."_s);
    for (const char *label : {"lblTitle", "lblVersion", "lblDescription"}) {
        QCOMPARE(find<QLabel>(label)->font().family(), u"Some Font"_s);
        QCOMPARE(find<QLabel>(label)->textFormat(), Qt::PlainText);
    }
    for (const char *line : {"Line1_0", "Line1_1"})
        QCOMPARE(find<QFrame>(line)->frameShape(), QFrame::HLine);
    QVERIFY(!find<QLabel>("picIcon")->accessibleName().isEmpty());
}

void tst_frmAbout::keysClose_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Return") << Qt::Key_Return;
    QTest::newRow("Enter") << Qt::Key_Enter;
    QTest::newRow("Escape") << Qt::Key_Escape;
    QTest::newRow("space") << Qt::Key_Space;
}

void tst_frmAbout::keysClose()
{
    QFETCH(Qt::Key, key);
    QTest::keyClick(QApplication::focusWidget(), key);
    QVERIFY(!box_->isVisible());
}

void tst_frmAbout::okCloses()
{
    click("cmdOK");
    QVERIFY(!box_->isVisible());
}

void tst_frmAbout::tabOrder()
{
    QVERIFY(find<QPushButton>("cmdOK")->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QVERIFY(find<QPushButton>("cmdSysInfo")->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QVERIFY(find<QPushButton>("cmdOK")->hasFocus());
}

void tst_frmAbout::startsTheProgramOfItsPath()
{
    const RecordingProgram program(path(u"my info"_s));
    storePath(program.path());
    const MessageBoxes boxes;
    click("cmdSysInfo");
    QTRY_VERIFY(program.wasStarted());
    QCOMPARE(program.commandLine(), QStringList{program.path()});
    QVERIFY(boxes.seen().empty());
    QVERIFY(box_->isVisible());
}

void tst_frmAbout::startsTheProgramInItsLocation()
{
    const RecordingProgram program(path(u"MSINFO32.EXE"_s));
    storeLocation(registry_->folder.path());
    QTest::keyClick(box_.get(), Qt::Key_S, Qt::AltModifier);
    QTRY_VERIFY(program.wasStarted());
    QCOMPARE(program.commandLine(), QStringList{program.path()});
}

void tst_frmAbout::pathGoesBeforeLocation()
{
    const RecordingProgram inLocation(path(u"MSINFO32.EXE"_s));
    const RecordingProgram ofPath(path(u"info"_s));
    storeLocation(registry_->folder.path());
    storePath(ofPath.path());
    click("cmdSysInfo");
    QTRY_VERIFY(ofPath.wasStarted());
    QVERIFY(!inLocation.wasStarted());
}

void tst_frmAbout::tellsThatThereIsNone_data()
{
    QTest::addColumn<QString>("storedPath");
    QTest::addColumn<QString>("storedLocation");
    QTest::newRow("nothing stored") << QString() << QString();
    QTest::newRow("path to nothing") << u"info"_s << QString();
    QTest::newRow("location of nothing") << QString() << u"."_s;
    QTest::newRow("path to a folder") << u"."_s << QString();
}

void tst_frmAbout::tellsThatThereIsNone()
{
    QFETCH(QString, storedPath);
    QFETCH(QString, storedLocation);
    if (!storedPath.isEmpty())
        storePath(path(storedPath));
    if (!storedLocation.isEmpty())
        storeLocation(path(storedLocation));
    const MessageBoxes boxes;
    click("cmdSysInfo");
    QCOMPARE(boxes.seen().size(), 1u);
    QCOMPARE(boxes.seen().front().text, u"System Information Is Unavailable At This Time"_s);
    QCOMPARE(boxes.seen().front().title, u"Quillon"_s);
    QCOMPARE(boxes.seen().front().buttons, QMessageBox::Ok);
    QVERIFY(box_->isVisible());
}

void tst_frmAbout::failureIsARuntimeError()
{
    QFile file(path(u"info"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    storePath(file.fileName());
    const MessageBoxes boxes;
    click("cmdSysInfo");
    QCOMPARE(boxes.seen().size(), 1u);
    QCOMPARE(boxes.seen().front().text,
             u"Run-time error '70':\n\nPermission denied\n"_s + file.fileName());
    QVERIFY(box_->isVisible());
}

QTEST_MAIN(tst_frmAbout)
#include "tst_frmabout.moc"
