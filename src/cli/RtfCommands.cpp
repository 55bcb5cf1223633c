#include "cli/RtfCommands.h"

#include "cli/CommandLine.h"
#include "rtf/RtfReader.h"
#include "rtf/RtfWriter.h"

#include <QFile>
#include <QSaveFile>
#include <QTextDocument>

namespace {

CommandFailure failure(const QFileDevice &file)
{
    return {QStringLiteral("%1: %2").arg(file.fileName(), file.errorString())};
}

CommandFailure failure(const QString &name, const RtfError &error)
{
    const QString what = error.what == RtfError::What::NotRtf
                             ? QStringLiteral("not RTF")
                             : QStringLiteral("more than a document may hold");
    return {QStringLiteral("%1: %2 at byte %3").arg(name, what).arg(error.byteOffset)};
}

QByteArray bytesOf(const QString &name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        throw failure(file);
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw failure(file);
    return bytes;
}

void replaceFile(const QString &name, const QByteArray &bytes)
{
    QSaveFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        throw failure(file);
}

} // namespace

int rtf2text(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Prints the text of an RTF file as UTF-8."));
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("The RTF file."));
    if (const auto status = parseCommandLine(parser, arguments))
        return *status;
    const QStringList names = parser.positionalArguments();
    if (names.size() != 1)
        return wrongUsage(QStringLiteral("rtf2text takes one file"));
    QString text;
    if (const auto error = readRtfText(bytesOf(names[0]), text))
        throw failure(names[0], *error);
    print(text + u'\n');
    return ExitSuccess;
}

int rtf2rtf(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Reads an RTF file and writes it as Quillon itself would."));
    parser.addPositionalArgument(QStringLiteral("IN"), QStringLiteral("The file to be read."));
    parser.addPositionalArgument(QStringLiteral("OUT"), QStringLiteral("The file to be written."));
    if (const auto status = parseCommandLine(parser, arguments))
        return *status;
    const QStringList names = parser.positionalArguments();
    if (names.size() != 2)
        return wrongUsage(QStringLiteral("rtf2rtf takes two files"));
    QTextDocument document;
    if (const auto error = readRtf(bytesOf(names[0]), document))
        throw failure(names[0], *error);
    replaceFile(names[1], writeRtf(document));
    return ExitSuccess;
}
