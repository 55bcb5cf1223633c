#include "app/Program.h"
#include "platform/FileRegistryStore.h"
#include "platform/ProgramFolder.h"
#include "platform/RegistryFunctions.h"
#include "platform/RunCommand.h"

#include "Version.h"

#include <QApplication>
#include <QIcon>

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    QGuiApplication::setDesktopFileName(QStringLiteral("quillon"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/quillon.svg")));
    FileRegistryStore store(FileRegistryStore::defaultUserFile(),
                            FileRegistryStore::defaultSystemFile());
    RegistryFunctions registry(store);
    const QString executableFolder = QCoreApplication::applicationDirPath();
    const ProgramFolder folder(executableFolder, ProgramFolder::defaultUserFolder());
    runCommand(nullptr, [&folder] {
        folder.seed(QVersionNumber::fromString(QStringLiteral(QUILLON_VERSION)));
    });
    Program program(registry, folder.path(), executableFolder + QStringLiteral("/Fonts"));
    return program.Main() ? QApplication::exec() : EXIT_FAILURE;
}
