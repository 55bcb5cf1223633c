#pragma once

#include <QCommandLineParser>
#include <QString>
#include <optional>

/// What a command ends with.
enum ExitStatus { ExitSuccess = 0, ExitFailure = 1, ExitWrongUsage = 2 };

/// A failure whose message goes to standard error and ends the program with `ExitFailure`.
struct CommandFailure
{
    QString message;
};

/// Parses a command's arguments (the first is the command's own name) and answers `--help` and
/// `--version`. Returns the exit status when the command is to end here: after an answer, or after
/// wrong usage, which is explained on standard error.
[[nodiscard]] std::optional<int> parseCommandLine(QCommandLineParser &parser,
                                                  const QStringList &arguments);

/// The program's name and version, as `--version` prints them.
[[nodiscard]] QString versionLine();

/// Explains wrong usage on standard error and returns `ExitWrongUsage`.
int wrongUsage(const QString &problem);

/// Writes a line to standard error, behind the program's name.
void complain(const QString &message);

/// Writes a text to standard output as UTF-8; throws `CommandFailure` when that fails.
void print(const QString &text);

/// The folder that modes are looked for in when none is named: "Modes" in the folder that the
/// window uses, so that both have the same modes.
[[nodiscard]] QString defaultModesFolder();
