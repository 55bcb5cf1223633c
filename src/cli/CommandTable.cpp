#include "cli/CommandTable.h"

#include "cli/CommandLine.h"

#include <algorithm>

namespace {

QString usage(const QString &group, std::span<const Command> commands)
{
    const QString program = QStringLiteral("quillon-cli ") + group;
    QString text = QStringLiteral("Usage: %1COMMAND [OPTIONS] [FILE...]\n"
                                  "       %1COMMAND --help\n"
                                  "       %1--version\n\nCommands:\n")
                       .arg(program);
    const auto form = [](const Command &command) {
        return QStringLiteral("%1 %2").arg(QLatin1String(command.name),
                                           QLatin1String(command.arguments));
    };
    qsizetype width = 0;
    for (const Command &command : commands)
        width = std::max(width, form(command).size());
    for (const Command &command : commands)
        text += QStringLiteral("  %1  %2\n")
                    .arg(form(command), -int(width))
                    .arg(QLatin1String(command.summary));
    return text;
}

} // namespace

int runCommand(const QString &group, std::span<const Command> commands,
               const QStringList &arguments)
{
    const QString prefix = group.isEmpty() ? QString() : group + u' ';
    const QString name = arguments.value(0);
    for (const Command &command : commands) {
        if (name == QLatin1String(command.name)) {
            QStringList words = arguments;
            words.first().prepend(prefix);
            return command.run(words);
        }
    }
    if (name == u"--help" || name == u"-h") {
        print(usage(prefix, commands));
        return ExitSuccess;
    }
    if (name == u"--version" || name == u"-v") {
        print(versionLine());
        return ExitSuccess;
    }
    return wrongUsage(name.isEmpty() ? QStringLiteral("no command given")
                                     : QStringLiteral("unknown command '%1'").arg(prefix + name));
}
