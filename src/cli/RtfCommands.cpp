#include "cli/RtfCommands.h"

#include "rtf/RtfReader.h"
#include "rtf/RtfWriter.h"
#include <QFile>
#include <QSaveFile>
#include <QStringList>
#include <QTextDocument>
#include <cstdio>

namespace {

enum ExitStatus { Success = 0, Failure = 1, WrongUsage = 2 };

void complain(const QString &text)
{
    std::fputs((text + u'\n').toLocal8Bit().constData(), stderr);
}

int usage(const char *line)
{
    complain(QStringLiteral("Usage: quillon-cli ") + QLatin1StringView(line));
    return WrongUsage;
}

QString wording(RtfError::What what)
{
    switch (what) {
    case RtfError::What::NotRtf:
        return QStringLiteral("not an RTF file");
    case RtfError::What::TooLarge:
        return QStringLiteral("the document is too large");
    case RtfError::What::ReadFailed:
        break;
    }
    return QStringLiteral("the file can't be read");
}

int fail(const QString &path, const RtfError &error)
{
    complain(
        QStringLiteral("%1: byte %2: %3").arg(path).arg(error.byteOffset).arg(wording(error.what)));
    return Failure;
}

int fail(const QString &path, const QFileDevice &file)
{
    complain(path + QStringLiteral(": ") + file.errorString());
    return Failure;
}

/// The file's bytes, empty and with the file's error set if they can't be read.
QByteArray readAll(QFile &file)
{
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

int rtf2text(const QStringList &arguments)
{
    if (arguments.size() != 1)
        return usage("rtf2text FILE.rtf");
    QFile file(arguments[0]);
    const QByteArray bytes = readAll(file);
    if (file.error() != QFileDevice::NoError)
        return fail(arguments[0], file);
    QString text;
    if (const auto error = readRtfText(bytes, text))
        return fail(arguments[0], *error);
    text.append(u'\n');
    QFile out;
    const bool written =
        out.open(stdout, QIODevice::WriteOnly) && out.write(text.toUtf8()) >= 0 && out.flush();
    return written ? Success : fail(QStringLiteral("standard output"), out);
}

int rtf2rtf(const QStringList &arguments)
{
    if (arguments.size() != 2)
        return usage("rtf2rtf IN OUT");
    QFile file(arguments[0]);
    const QByteArray bytes = readAll(file);
    if (file.error() != QFileDevice::NoError)
        return fail(arguments[0], file);
    QTextDocument document;
    if (const auto error = readRtf(bytes, document))
        return fail(arguments[0], *error);
    QSaveFile out(arguments[1]);
    const bool written =
        out.open(QIODevice::WriteOnly) && out.write(writeRtf(document)) >= 0 && out.commit();
    return written ? Success : fail(arguments[1], out);
}
