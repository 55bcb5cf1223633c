#pragma once

#include <QProcess>

/// What a run of the command line program gave.
struct ProgramRun
{
    int status;
    QByteArray output;
    QByteArray error;
};

/// Runs quillon-cli to its end.
[[nodiscard]] inline ProgramRun runProgram(const QStringList &arguments,
                                           const QByteArray &input = {})
{
    QProcess process;
    process.start(QStringLiteral(QUILLON_PROGRAM_FOLDER "/quillon-cli"), arguments);
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished())
        return {-1, {}, "the program does not end"};
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}
