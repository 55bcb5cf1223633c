#include "cli/ModeCommands.h"

#include "cli/CommandLine.h"
#include "cli/CommandTable.h"
#include "engine/CodePage.h"
#include "engine/LoadMode.h"
#include "engine/source/CheckMode.h"
#include "engine/source/PackMode.h"
#include "engine/source/UnpackMode.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringDecoder>
#include <array>

namespace {

// More than ten times what the largest mode that can be transcribed with takes. Whole files are
// held in memory, also endless ones.
constexpr qint64 maximumFileLength = 16 << 20;

QByteArray readFile(const QString &name)
{
    QFile file(name);
    const bool isOpen = file.open(QIODevice::ReadOnly);
    QByteArray bytes = isOpen ? file.read(maximumFileLength + 1) : QByteArray();
    if (file.error() != QFileDevice::NoError)
        throw CommandFailure{QStringLiteral("%1: %2").arg(name, file.errorString())};
    if (bytes.size() > maximumFileLength)
        throw CommandFailure{
            QStringLiteral("%1: larger than any mode (%2 bytes)").arg(name).arg(maximumFileLength)};
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
    if (!QFileInfo(name).isFile())
        throw CommandFailure{QStringLiteral("there is no mode %1").arg(name)};
    QByteArray bytes = readFile(name);
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    ModeTable table; // what can't be loaded is told as a run would tell it
    readMode(buffer, name, table);
    const ModeReport report = checkMode(bytes);
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

constexpr std::array commands = {
    Command{"pack", "SOURCE OUT.mod", "make a mode file of a mode source", pack},
    Command{"unpack", "FILE.mod", "write a mode file as a source", unpack},
    Command{"list", "[--modes FOLDER]", "list the modes of a folder", list},
    Command{"check", "FILE.mod", "look for faults in a mode file", check},
};

} // namespace

int mode(const QStringList &arguments)
{
    return runCommand(arguments.first(), commands, arguments.sliced(1));
}
