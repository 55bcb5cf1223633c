#include "cli/CommandLine.h"
#include "cli/ModeCommands.h"
#include "cli/RtfCommands.h"
#include "cli/TranscribeCommand.h"
#include "engine/RuntimeError.h"

#include <QCoreApplication>
#include <array>

namespace {

struct Command
{
    const char *name;
    const char *summary;
    /// Takes the arguments from the command's own name on; returns an exit status.
    int (*run)(const QStringList &arguments);
};

constexpr std::array commands = {
    Command{"transcribe", "transcribe English or Elvish text by a mode", transcribe},
    Command{"mode", "pack, unpack, list and check modes", mode},
    Command{"rtf2text", "print the text of an RTF file", rtf2text},
    Command{"rtf2rtf", "rewrite an RTF file", rtf2rtf},
};

QString usage()
{
    QString text = QStringLiteral("Usage: quillon-cli COMMAND [OPTIONS] [FILE...]\n"
                                  "       quillon-cli COMMAND --help\n"
                                  "       quillon-cli --version\n\nCommands:\n");
    for (const Command &command : commands)
        text += QStringLiteral("  %1%2\n")
                    .arg(QLatin1String(command.name), -14)
                    .arg(QLatin1String(command.summary));
    return text;
}

int run(const QStringList &arguments)
{
    const QString name = arguments.value(0);
    for (const Command &command : commands) {
        if (name == QLatin1String(command.name))
            return command.run(arguments);
    }
    if (name == u"--help" || name == u"-h") {
        print(usage());
        return ExitSuccess;
    }
    if (name == u"--version" || name == u"-v") {
        print(versionLine());
        return ExitSuccess;
    }
    return wrongUsage(name.isEmpty() ? QStringLiteral("no command given")
                                     : QStringLiteral("unknown command '%1'").arg(name));
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    try {
        return run(QCoreApplication::arguments().sliced(1));
    } catch (const CommandFailure &failure) {
        complain(failure.message);
    } catch (const RuntimeError &error) {
        complain(QStringLiteral("error %1: %2")
                     .arg(static_cast<int>(error.number()))
                     .arg(QString::fromUtf8(error.what())));
    } catch (const std::bad_alloc &) {
        complain(errorDescription(ErrorNumber::OutOfMemory));
    }
    return ExitFailure;
}
