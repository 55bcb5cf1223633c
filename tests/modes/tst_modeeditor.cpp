#include "editor/Settings.h"
#include "modes/ModeEditor.h"
#include "platform/RunCommand.h"
#include "support/FileDialogs.h"
#include "support/MessageBoxes.h"
#include "support/ModalDialog.h"
#include "support/RecordingProgram.h"

#include <QDir>
#include <QFileSystemModel>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// The command as its user meets it: real questions, a real file dialog, a program that is started.
class tst_ModeEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void wordsOfTheModeAreArguments_data();
    void wordsOfTheModeAreArguments();
    void pathIsNeverSplit();
    void missingEditorIsAskedFor_data();
    void missingEditorIsAskedFor();
    void decliningStartsNothing_data();
    void decliningStartsNothing();
    void cancellingTheFileDialogStartsNothing();
    void locatedEditorIsStartedNowAndLater();
    void missingNamesAreRefused();
    void vanishedFileStartsNothing();
    void onlyTheEditorIsListed();
    void failureIsARuntimeError();

private:
    [[nodiscard]] bool run()
    {
        return runCommand(&window_, [this] { editor_->runModeSmith(); });
    }
    [[nodiscard]] QString path(const QString &name) const { return folder_->filePath(name); }

    QWidget window_;
    std::unique_ptr<QTemporaryDir> folder_;
    std::unique_ptr<ModeEditor> editor_;
    Settings settings_;
};

void tst_ModeEditor::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    settings_ = {};
    settings_.EditorPath = path(u"ModeSmith.exe"_s);
    settings_.CurrentMode = u"Quenya"_s;
    editor_ = std::make_unique<ModeEditor>(settings_, window_);
}

void tst_ModeEditor::wordsOfTheModeAreArguments_data()
{
    QTest::addColumn<QString>("mode");
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("one word") << u"Quenya"_s << QStringList{u"Quenya"_s};
    QTest::newRow("two words") << u"Black Speech"_s << QStringList{u"Black"_s, u"Speech"_s};
    QTest::newRow("many spaces") << u" a  b "_s << QStringList{u"a"_s, u"b"_s};
    QTest::newRow("no mode") << QString() << QStringList();
}

void tst_ModeEditor::wordsOfTheModeAreArguments()
{
    QFETCH(QString, mode);
    QFETCH(QStringList, arguments);
    settings_.CurrentMode = mode;
    const RecordingProgram program(settings_.EditorPath);
    const MessageBoxes boxes;
    QVERIFY(run());
    QTRY_VERIFY(program.wasStarted());
    QCOMPARE(program.commandLine(), QStringList(settings_.EditorPath) + arguments);
    QVERIFY(boxes.seen().empty());
    QVERIFY(!editor_->isLocated());
}

void tst_ModeEditor::pathIsNeverSplit()
{
    QVERIFY(QDir(folder_->path()).mkpath(u"my editor"_s));
    settings_.EditorPath = path(u"my editor/Mode Smith.exe"_s);
    const RecordingProgram program(settings_.EditorPath);
    QVERIFY(run());
    QTRY_VERIFY(program.wasStarted());
    QCOMPARE(program.commandLine(), (QStringList{settings_.EditorPath, u"Quenya"_s}));
}

void tst_ModeEditor::missingEditorIsAskedFor_data()
{
    QTest::addColumn<QString>("made");
    QTest::newRow("no file") << QString();
    QTest::newRow("a folder of that name") << u"ModeSmith.exe"_s;
}

void tst_ModeEditor::missingEditorIsAskedFor()
{
    QFETCH(QString, made);
    if (!made.isEmpty())
        QVERIFY(QDir(folder_->path()).mkdir(made));
    const MessageBoxes boxes({QMessageBox::No});
    QVERIFY(run());
    QCOMPARE(boxes.seen().size(), 1u);
    const MessageBoxes::Seen &box = boxes.seen().front();
    QCOMPARE(box.text, u"Quillon could not find the file ModeSmith.exe. Would you like to tell the "
                       "program where to find this file?"_s);
    QCOMPARE(box.title, u"Error launching the Mode Editor"_s);
    QCOMPARE(box.buttons, QMessageBox::Yes | QMessageBox::No);
    QCOMPARE(box.icon, QMessageBox::Warning);
}

void tst_ModeEditor::decliningStartsNothing_data()
{
    QTest::addColumn<bool>("byEscape");
    QTest::newRow("No") << false;
    QTest::newRow("Escape") << true;
}

void tst_ModeEditor::decliningStartsNothing()
{
    QFETCH(bool, byEscape);
    const QString before = settings_.EditorPath;
    const MessageBoxes boxes(byEscape ? std::deque<QMessageBox::StandardButton>()
                                      : std::deque{QMessageBox::No});
    const FileDialogs dialogs;
    QVERIFY(run());
    QCOMPARE(boxes.seen().size(), 1u);
    QVERIFY(dialogs.seen().isEmpty());
    QCOMPARE(settings_.EditorPath, before);
    QVERIFY(!editor_->isLocated());
}

void tst_ModeEditor::cancellingTheFileDialogStartsNothing()
{
    const QString before = settings_.EditorPath;
    const MessageBoxes boxes({QMessageBox::Yes});
    const FileDialogs dialogs;
    QVERIFY(run());
    QCOMPARE(dialogs.seen().size(), 1);
    QCOMPARE(dialogs.seen().front().title, u"Locate ModeSmith.exe"_s);
    QCOMPARE(dialogs.seen().front().filters, QStringList{u"ModeSmith.exe"_s});
    QCOMPARE(dialogs.seen().front().name, QString());
    QCOMPARE(boxes.seen().size(), 1u);
    QCOMPARE(settings_.EditorPath, before);
    QVERIFY(!editor_->isLocated());
}

void tst_ModeEditor::locatedEditorIsStartedNowAndLater()
{
    QVERIFY(QDir(folder_->path()).mkdir(u"elsewhere"_s));
    RecordingProgram program(path(u"elsewhere/ModeSmith.exe"_s));
    const MessageBoxes boxes({QMessageBox::Yes});
    const FileDialogs dialogs({{program.path()}});
    QVERIFY(run());
    QTRY_VERIFY(program.wasStarted());
    QCOMPARE(program.commandLine(), (QStringList{program.path(), u"Quenya"_s}));
    QCOMPARE(settings_.EditorPath, program.path());
    QVERIFY(editor_->isLocated());

    program.forget();
    QVERIFY(run());
    QTRY_VERIFY(program.wasStarted());
    QCOMPARE(boxes.seen().size(), 1u);
    QCOMPARE(dialogs.seen().size(), 1);
}

void tst_ModeEditor::missingNamesAreRefused()
{
    const QString before = settings_.EditorPath;
    const MessageBoxes boxes({QMessageBox::Yes, QMessageBox::Ok});
    const FileDialogs dialogs({{path(u"none/ModeSmith.exe"_s)}});
    QVERIFY(run());
    QCOMPARE(dialogs.seen().size(), 2); // it stayed open, and was cancelled then
    QCOMPARE(boxes.seen().size(), 2u);
    QCOMPARE(settings_.EditorPath, before);
    QVERIFY(!editor_->isLocated());
}

void tst_ModeEditor::vanishedFileStartsNothing()
{
    const QString before = settings_.EditorPath;
    QVERIFY(QDir(folder_->path()).mkdir(u"elsewhere"_s));
    const RecordingProgram program(path(u"elsewhere/ModeSmith.exe"_s));
    const MessageBoxes boxes({QMessageBox::Yes});
    const ModalDialog dialogs("CommonDialog1", [&program](QDialog &dialog) {
        connect(&dialog, &QDialog::accepted, &dialog, [&] { QFile::remove(program.path()); });
        dialog.findChild<QLineEdit *>(u"fileNameEdit"_s)->setText(program.path());
        dialog.accept();
    });
    QVERIFY(run());
    QCOMPARE(dialogs.uses(), 1);
    QVERIFY(!QFile::exists(program.path()));
    QCOMPARE(boxes.seen().size(), 1u);
    QCOMPARE(settings_.EditorPath, before);
    QVERIFY(!editor_->isLocated());
}

void tst_ModeEditor::onlyTheEditorIsListed()
{
    QVERIFY(QDir(folder_->path()).mkdir(u"elsewhere"_s));
    const RecordingProgram program(path(u"elsewhere/ModeSmith.exe"_s));
    const RecordingProgram other(path(u"elsewhere/Other.exe"_s));
    const MessageBoxes boxes({QMessageBox::Yes});
    const ModalDialog dialogs("CommonDialog1", [this](QDialog &dialog) {
        qobject_cast<QFileDialog *>(&dialog)->setDirectory(path(u"elsewhere"_s));
        const auto *list = dialog.findChild<QListView *>(u"listView"_s);
        const auto listed = [list] {
            QStringList names;
            for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row)
                names += list->model()->index(row, 0, list->rootIndex()).data().toString();
            return names;
        };
        QTRY_COMPARE(listed(), QStringList{u"ModeSmith.exe"_s});
    });
    QVERIFY(run());
    QCOMPARE(dialogs.uses(), 1);
}

void tst_ModeEditor::failureIsARuntimeError()
{
    QFile file(settings_.EditorPath);
    QVERIFY(file.open(QIODevice::WriteOnly));
    const MessageBoxes boxes;
    QVERIFY(!run());
    QCOMPARE(boxes.seen().size(), 1u);
    QCOMPARE(boxes.seen().front().title, u"Quillon"_s);
    QCOMPARE(boxes.seen().front().text,
             u"Run-time error '70':\n\nPermission denied\n"_s + settings_.EditorPath);
}

QTEST_MAIN(tst_ModeEditor)
#include "tst_modeeditor.moc"
