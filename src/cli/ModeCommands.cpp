#include "cli/ModeCommands.h"

#include "cli/CommandLine.h"
#include "engine/CodePage.h"
#include "engine/LoadMode.h"
#include "engine/source/CheckMode.h"
#include "engine/source/PackMode.h"
#include "engine/source/UnpackMode.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStringDecoder>
#include <array>

namespace {

QByteArray readFile(const QString &name)
{
    QFile file(name);
    const bool isOpen = file.open(QIODevice::ReadOnly);
    QByteArray bytes = isOpen ? file.readAll() : QByteArray();
    if (file.error() != QFileDevice::NoError)
        throw CommandFailure{QStringLiteral("%1: %2").arg(name, file.errorString())};
    return bytes;
}

void writeFile(const QString &name, const QByteArray &bytes)
{
    QSaveFile file(name);
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    if (!isWritten || !file.commit())
        throw CommandFailure{QStringLiteral("%1: %2").arg(name, file.errorString())};
}

/// Parses the arguments of a command that takes exactly these files.
std::optional<int> parseFiles(QCommandLineParser &parser, const QStringList &arguments,
                              const QStringList &files)
{
    for (const QString &file : files)
        parser.addPositionalArgument(file, QString(), file);
    if (const auto status = parseCommandLine(parser, arguments))
        return status;
    if (parser.positionalArguments().size() != files.size())
        return wrongUsage(QStringLiteral("%1 takes %2")
                              .arg(arguments.first(),
                                   files.isEmpty() ? QStringLiteral("no file") : files.join(u' ')));
    return std::nullopt;
}

int pack(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Makes a mode file of a mode source."));
    if (const auto status =
            parseFiles(parser, arguments, {QStringLiteral("SOURCE"), QStringLiteral("OUT.mod")}))
        return *status;
    const QString name = parser.positionalArguments().at(0);
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString source = decoder.decode(readFile(name));
    if (decoder.hasError())
        throw CommandFailure{QStringLiteral("%1: not UTF-8").arg(name)};
    const PackedMode packed = packMode(source);
    for (const SourceProblem &problem : packed.problems)
        complain(QStringLiteral("%1:%2: %3").arg(name).arg(problem.line).arg(problem.message));
    if (!packed.problems.isEmpty())
        return ExitFailure;
    writeFile(parser.positionalArguments().at(1), packed.bytes);
    return ExitSuccess;
}

int unpack(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Writes a mode file as a readable source, which packs to the same bytes."));
    if (const auto status = parseFiles(parser, arguments, {QStringLiteral("FILE.mod")}))
        return *status;
    print(unpackMode(readFile(parser.positionalArguments().first())));
    return ExitSuccess;
}

int list(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Lists the modes of a folder."));
    const QCommandLineOption modes(
        QStringLiteral("modes"),
        QStringLiteral("Folder of the modes (default: the one that the window uses)."),
        QStringLiteral("FOLDER"), defaultModesFolder());
    parser.addOption(modes);
    if (const auto status = parseFiles(parser, arguments, {}))
        return *status;
    const QDir folder(parser.value(modes));
    if (!folder.exists())
        throw CommandFailure{QStringLiteral("there is no folder %1").arg(folder.path())};
    const QStringList names =
        folder.entryList({QStringLiteral("*.mod")}, QDir::Files | QDir::CaseSensitive,
                         QDir::Name | QDir::IgnoreCase);
    for (const QString &name : names)
        print(QStringLiteral("%1\t%2\n")
                  .arg(name.chopped(int(qstrlen(".mod"))), readModeComment(folder.filePath(name))));
    return ExitSuccess;
}

int check(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Finds rules that can never fire, marks in the wrong position for their "
                       "letter, and letters of the alphabet without a rule."));
    if (const auto status = parseFiles(parser, arguments, {QStringLiteral("FILE.mod")}))
        return *status;
    const QString name = parser.positionalArguments().first();
    ModeTable table;
    if (!loadModeFile(name, table))
        throw CommandFailure{QStringLiteral("there is no mode %1").arg(name)};
    const ModeReport report = checkMode(readFile(name));
    for (const SourceProblem &fault : report.faults)
        complain(
            fault.line == 0
                ? QStringLiteral("%1: %2").arg(name, fault.message)
                : QStringLiteral("%1: record %2: %3").arg(name).arg(fault.line).arg(fault.message));
    print(QStringLiteral("%1 rules\n").arg(report.ruleCount));
    if (!report.undefined.isEmpty())
        print(QStringLiteral("undefined: %1\n").arg(fromCodePage(report.undefined)));
    return report.faults.isEmpty() ? ExitSuccess : ExitFailure;
}

struct Command
{
    const char *name;
    const char *summary;
    int (*run)(const QStringList &arguments);
};

constexpr std::array commands = {
    Command{"pack", "SOURCE OUT.mod     make a mode file of a mode source", pack},
    Command{"unpack", "FILE.mod         write a mode file as a source", unpack},
    Command{"list", "[--modes FOLDER]   list the modes of a folder", list},
    Command{"check", "FILE.mod          look for faults in a mode file", check},
};

QString usage()
{
    QString text = QStringLiteral("Usage: quillon-cli mode COMMAND [OPTIONS] [FILE...]\n"
                                  "       quillon-cli mode COMMAND --help\n\nCommands:\n");
    for (const Command &command : commands)
        text += QStringLiteral("  %1 %2\n")
                    .arg(QLatin1String(command.name), QLatin1String(command.summary));
    return text;
}

} // namespace

int mode(const QStringList &arguments)
{
    const QString name = arguments.value(1);
    for (const Command &command : commands) {
        if (name == QLatin1String(command.name)) {
            QStringList words = arguments.sliced(1);
            words.first().prepend(QStringLiteral("mode "));
            return command.run(words);
        }
    }
    if (name == u"--help" || name == u"-h") {
        print(usage());
        return ExitSuccess;
    }
    if (name == u"--version" || name == u"-v") {
        print(versionLine());
        return ExitSuccess;
    }
    return wrongUsage(name.isEmpty() ? QStringLiteral("mode needs a command")
                                     : QStringLiteral("unknown command 'mode %1'").arg(name));
}
