#include "app/Program.h"
#include "platform/FileRegistryStore.h"
#include "platform/RegistryFunctions.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    FileRegistryStore store(FileRegistryStore::defaultUserFile(),
                            FileRegistryStore::defaultSystemFile());
    RegistryFunctions registry(store);
    Program program(registry, QCoreApplication::applicationDirPath());
    return program.Main() ? QApplication::exec() : EXIT_FAILURE;
}
