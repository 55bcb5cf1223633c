// Drives the real program through its main job, as its user would: choose a mode, type a verse,
// transcribe it. Prints the verse and its codes, and saves a picture of the window.
//
//   demo MODE VERSE PICTURE.png

#include "app/Form1.h"
#include "app/Program.h"
#include "app/ToolbarCombo.h"
#include "platform/FileRegistryStore.h"
#include "platform/RegistryFunctions.h"
#include "platform/RichTextBox.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>
#include <cstdio>

namespace {

void type(QWidget &pane, const QString &verse)
{
    for (const QChar character : verse) {
        if (character == u'\n')
            QTest::keyClick(&pane, Qt::Key_Return);
        else
            QTest::keyClicks(&pane, character);
    }
}

void print(const char *label, const QString &text)
{
    std::printf("%s%s\n", label, text.toUtf8().constData());
}

int transcribe(Form1 &form, const QString &mode, const QString &verse, const QString &picture)
{
    const FormControls &controls = form.controls();
    form.activateWindow(); // on a bare display no window manager does
    if (!QTest::qWaitForWindowActive(&form))
        return EXIT_FAILURE;
    controls.cboModeName->setFocus();
    QTest::keyClicks(controls.cboModeName, mode);
    QTest::keyClick(controls.cboModeName, Qt::Key_Return);
    controls.rtbRoman->setFocus();
    type(*controls.rtbRoman, verse);
    form.commands().action(QLatin1StringView("Toolbar1.Transcribe")).trigger();
    if (controls.rtbTengwar->Text().isEmpty() || !form.grab().save(picture))
        return EXIT_FAILURE;
    print("Source:\n", controls.rtbRoman->Text());
    print("Target:\n", controls.rtbTengwar->Text());
    print("Picture: ", picture);
    std::fflush(stdout);
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 4) {
        std::fputs("usage: demo MODE VERSE PICTURE.png\n", stderr);
        return 2;
    }
    const QTemporaryDir settings;
    FileRegistryStore store(settings.filePath(QStringLiteral("user")),
                            settings.filePath(QStringLiteral("system")));
    RegistryFunctions registry(store);
    Program program(registry, QStringLiteral(QUILLON_PROGRAM_FOLDER),
                    QStringLiteral(QUILLON_PROGRAM_FOLDER "/Fonts"));
    if (!program.Main())
        return EXIT_FAILURE;
    return transcribe(program.form(), arguments[1], arguments[2], arguments[3]);
}
