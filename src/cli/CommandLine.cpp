#include "cli/CommandLine.h"

#include "platform/ProgramFolder.h"

#include "Version.h"

#include <QCoreApplication>
#include <QFile>
#include <cstdio>

std::optional<int> parseCommandLine(QCommandLineParser &parser, const QStringList &arguments)
{
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Show this help."));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     QStringLiteral("Show the program's version."));
    parser.addOptions({help, version});
    if (!parser.parse(arguments))
        return wrongUsage(parser.errorText());
    if (parser.isSet(help)) {
        // Qt names the program only; the command belongs to the usage line as well.
        QString text = parser.helpText();
        print(text.replace(QStringLiteral("Usage: ") + QCoreApplication::arguments().constFirst(),
                           QStringLiteral("Usage: quillon-cli ") + arguments.constFirst()));
        return ExitSuccess;
    }
    if (parser.isSet(version)) {
        print(versionLine());
        return ExitSuccess;
    }
    return std::nullopt;
}

QString versionLine()
{
    return QStringLiteral("quillon-cli " QUILLON_VERSION "\n");
}

int wrongUsage(const QString &problem)
{
    complain(problem + QStringLiteral(" (--help shows what is possible)"));
    return ExitWrongUsage;
}

void complain(const QString &message)
{
    const QByteArray line = "quillon-cli: " + message.toUtf8() + '\n';
    std::fwrite(line.constData(), 1, static_cast<size_t>(line.size()), stderr);
}

void print(const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    const auto length = static_cast<size_t>(bytes.size());
    if (std::fwrite(bytes.constData(), 1, length, stdout) != length || std::fflush(stdout) != 0)
        throw CommandFailure{QStringLiteral("the output cannot be written")};
}

QString defaultModesFolder()
{
    const ProgramFolder folder(QCoreApplication::applicationDirPath(),
                               ProgramFolder::defaultUserFolder());
    return folder.path() + QStringLiteral("/Modes");
}
