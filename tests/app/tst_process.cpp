// The whole program as a process: this test starts itself anew, with the program's own main.
#define main quillonMain
#include "app/main.cpp" // NOLINT(bugprone-suspicious-include)
#undef main

#include "app/Form1.h"

#include <QAction>
#include <QMessageBox>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>

using namespace Qt::Literals::StringLiterals;

namespace {

/// What the started program is to do once its window is open, before it is closed.
QString task; // NOLINT(cert-err58-cpp)

void finishTask(Form1 &form)
{
    if (task == u"change") {
        form.move(60, 40);
        form.resize(500, 400);
        form.findChild<QAction *>(u"mnuVStandardToolbar"_s)->trigger();
    }
    QTextStream(stdout) << form.x() << ' ' << form.y() << ' ' << form.width() << ' '
                        << form.height() << ' ' << form.controls().Toolbar1->isVisible() << '\n';
    form.close();
}

/// Stands for the user of the started program.
void actAsUser()
{
    if (task.isEmpty())
        return;
    auto *user = new QTimer(QCoreApplication::instance());
    user->callOnTimeout([] {
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            QTextStream(stdout) << box->text();
            box->accept();
            return;
        }
        for (QWidget *window : QApplication::topLevelWidgets()) {
            auto *form = qobject_cast<Form1 *>(window);
            if (form && form->isVisible())
                finishTask(*form);
        }
    });
    user->start(0);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(actAsUser)

class tst_Process : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void settingsAreFoundAgain();
    void placeIsKeptWhereItIsUnknown();
    void numbersBeyondRangeEndIt();
    void damagedSettingsDoNoHarm();
    void settingsThatCannotBeWritten();

private:
    struct Result
    {
        int status;
        QString output;
    };
    [[nodiscard]] Result run(const QString &todo) const;
    [[nodiscard]] QString settingsFile() const
    {
        return home_->filePath(u"config/Quillon/settings.ini"_s);
    }
    void writeSettings(const QByteArray &bytes) const;

    std::unique_ptr<QTemporaryDir> home_;
    QString platform_;
};

void tst_Process::init()
{
    home_ = std::make_unique<QTemporaryDir>();
    platform_ = u"offscreen"_s;
}

tst_Process::Result tst_Process::run(const QString &todo) const
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"HOME"_s, home_->path());
    environment.insert(u"XDG_CONFIG_HOME"_s, home_->filePath(u"config"_s));
    environment.insert(u"QT_QPA_PLATFORM"_s, platform_);
    if (platform_ == u"wayland") // its plugins keep what they allocate until the end
        environment.insert(u"ASAN_OPTIONS"_s, u"detect_leaks=0"_s);
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), {u"--quillon"_s, todo});
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
        return {-1, QString::fromUtf8(process.readAllStandardError())};
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput())};
}

void tst_Process::writeSettings(const QByteArray &bytes) const
{
    QVERIFY(QDir(home_->path()).mkpath(u"config/Quillon"_s));
    QFile file(settingsFile());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

void tst_Process::settingsAreFoundAgain()
{
    const Result first = run(u"close"_s);
    QCOMPARE(first.status, 0);
    QVERIFY2(first.output.endsWith(u" 1\n"), qPrintable(first.output));
    QVERIFY(QFile::exists(settingsFile()));

    const Result changed = run(u"change"_s);
    QCOMPARE(changed.status, 0);
    QCOMPARE(changed.output, u"60 40 500 400 0\n"_s);

    const Result again = run(u"close"_s);
    QCOMPARE(again.status, 0);
    QCOMPARE(again.output, changed.output);
}

void tst_Process::placeIsKeptWhereItIsUnknown()
{
    const QByteArray stored =
        "[Software\\Quillon\\Window]\n\"Width\" = \"6000\"\n\"Height\" = \"4500\"\n"
        "\"Left\" = \"915\"\n\"Top\" = \"615\"\n";
    writeSettings(stored);
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(home_->path()));
    qputenv("WAYLAND_DISPLAY", "wayland-of-test");
    QProcess compositor;
    compositor.start(u"weston"_s, {u"--backend=headless-backend.so"_s, u"--no-config"_s,
                                   u"--socket=wayland-of-test"_s});
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(home_->filePath(u"wayland-of-test"_s)), 60000);
    platform_ = u"wayland"_s;
    const Result result = run(u"close"_s);
    compositor.kill();
    QVERIFY(compositor.waitForFinished());
    QVERIFY2(result.status == 0, qPrintable(result.output));
    QVERIFY2(result.output.endsWith(u" 400 300 1\n"), qPrintable(result.output));
    QFile file(settingsFile());
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray settings = file.readAll();
    QVERIFY2(settings.contains("\"Left\" = \"915\"\n"), settings.constData());
    QVERIFY2(settings.contains("\"Top\" = \"615\"\n"), settings.constData());
}

void tst_Process::numbersBeyondRangeEndIt()
{
    writeSettings("[Software\\Quillon\\Window]\n\"Width\" = \"32768\"\n\"Height\" = \"6000\"\n");
    const Result result = run(u"close"_s);
    QCOMPARE(result.status, 1);
    QVERIFY2(result.output.startsWith(u"Run-time error '6':\n\nOverflow\n"),
             qPrintable(result.output));
}

void tst_Process::damagedSettingsDoNoHarm()
{
    writeSettings(QByteArray("\x00\xff[[[\n=\"\"\"\nWidth", 16));
    const Result result = run(u"close"_s);
    QCOMPARE(result.status, 0);
    QVERIFY(result.output.endsWith(u" 1\n"));
    QCOMPARE(run(u"close"_s).output, result.output);
}

void tst_Process::settingsThatCannotBeWritten()
{
    QFile inTheWay(home_->filePath(u"config"_s)); // a file where a folder belongs
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    const Result result = run(u"change"_s);
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, u"60 40 500 400 0\n"_s);
}

int main(int argc, char *argv[])
{
    if (argc == 3 && QLatin1StringView(argv[1]) == u"--quillon"_s) {
        task = QString::fromLatin1(argv[2]);
        return quillonMain(1, argv);
    }
    QCoreApplication application(argc, argv);
    tst_Process test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_process.moc"
