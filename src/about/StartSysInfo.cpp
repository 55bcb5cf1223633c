#include "about/StartSysInfo.h"

#include "about/GetKeyValue.h"
#include "platform/MessageBox.h"
#include "platform/RegistryFunctions.h"
#include "platform/StartProgram.h"

#include <QDir>
#include <QFileInfo>

namespace {

/// What the registry names; it may not exist. Empty if it names nothing.
QString systemInformationProgram(const RegistryFunctions &registry)
{
    const QString tools = QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools");
    QString found;
    if (GetKeyValue(registry, RegistryRoot::LocalMachine, tools + QStringLiteral("\\MSINFO"),
                    QStringLiteral("PATH"), found))
        return found;
    if (GetKeyValue(registry, RegistryRoot::LocalMachine, tools + QStringLiteral(" Location"),
                    QStringLiteral("MSINFO"), found))
        return QDir(found).filePath(QStringLiteral("MSINFO32.EXE"));
    return {};
}

} // namespace

void StartSysInfo(QWidget &window, const RegistryFunctions &registry)
{
    const QString program = systemInformationProgram(registry);
    if (QFileInfo(program).isFile())
        startProgram(program);
    else
        showMessage(&window,
                    {.text = QStringLiteral("System Information Is Unavailable At This Time")});
}
