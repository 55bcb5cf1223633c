#pragma once

#include <QStringList>

#include <span>

/// One of the commands that a word on the command line chooses.
struct Command
{
    const char *name;
    const char *arguments; ///< as the usage text shows them
    const char *summary;
    /// Takes the command's full name, such as "mode pack", and what follows it; returns an exit
    /// status.
    int (*run)(const QStringList &arguments);
};

/// Runs the command that the first of `arguments` names and returns its exit status. `group` is
/// what stands in front of the commands on the command line, empty for the program's own. Answers
/// `--help` and `--version`; other words are wrong usage, which is explained on standard error.
[[nodiscard]] int runCommand(const QString &group, std::span<const Command> commands,
                             const QStringList &arguments);
