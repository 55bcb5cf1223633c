#include "platform/StartProgram.h"

#include "engine/RuntimeError.h"
#include <QFileInfo>
#include <QProcess>

namespace {

ErrorNumber startFailure(const QFileInfo &program)
{
    if (!program.exists())
        return ErrorNumber::FileNotFound;
    return program.isFile() && program.isExecutable() ? ErrorNumber::PathFileAccess
                                                      : ErrorNumber::PermissionDenied;
}

} // namespace

void startProgram(const QString &path, const QStringList &arguments)
{
    const QFileInfo program(path);
    // a bare name would be searched for in other folders
    if (!QProcess::startDetached(program.absoluteFilePath(), arguments))
        throw RuntimeError(startFailure(program), path);
}
