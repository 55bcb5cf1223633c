#include "app/Program.h"
#include "platform/FileRegistryStore.h"
#include "platform/RegistryFunctions.h"

#include <QApplication>
#include <QIcon>

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/quillon.svg")));
    FileRegistryStore store(FileRegistryStore::defaultUserFile(),
                            FileRegistryStore::defaultSystemFile());
    RegistryFunctions registry(store);
    Program program(registry, QCoreApplication::applicationDirPath());
    return program.Main() ? QApplication::exec() : EXIT_FAILURE;
}
