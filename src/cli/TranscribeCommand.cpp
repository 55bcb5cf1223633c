#include "cli/TranscribeCommand.h"

#include "cli/CommandLine.h"
#include "cli/LineBreaks.h"
#include "cli/NfcPieces.h"
#include "cli/Utf8Pieces.h"
#include "engine/LoadMode.h"
#include "engine/TranscriptionStream.h"

#include <QFile>
#include <cstdio>
#include <memory>
#include <vector>

namespace {

constexpr qint64 pieceLength = 1 << 16; // bytes
const QString standardInput = QStringLiteral("-");

using Input = std::unique_ptr<QFile>;

Input openInput(const QString &name)
{
    auto file = std::make_unique<QFile>(name);
    const bool isOpen = name == standardInput ? file->open(stdin, QIODevice::ReadOnly)
                                              : file->open(QIODevice::ReadOnly);
    if (!isOpen)
        throw CommandFailure{QStringLiteral("%1: %2").arg(name, file->errorString())};
    return file;
}

/// All inputs, opened before anything is written.
std::vector<Input> openInputs(const QStringList &names)
{
    std::vector<Input> inputs;
    for (const QString &name : names.isEmpty() ? QStringList(standardInput) : names)
        inputs.push_back(openInput(name));
    return inputs;
}

ModeTable loadNamedMode(const QString &mode, const QString &modesFolder)
{
    const bool isFileName = mode.endsWith(QStringLiteral(".mod"));
    const QString fileName = isFileName ? mode : modeFileName(modesFolder, mode);
    ModeTable table;
    if (!loadModeFile(fileName, table))
        throw CommandFailure{QStringLiteral("there is no mode %1").arg(fileName)};
    return table;
}

/// Bytes in, transcription out, piece by piece.
class Pipeline
{
public:
    Pipeline(const ModeTable &table, const QString &undefinedText)
        : stream_(table, undefinedText, [this](Step::Kind kind, qint64 position, QStringView text) {
              breaks_.restore(kind, position, text, output_);
          })
    {
    }

    /// Transcribes one input; throws `CommandFailure` where it cannot be read or is not UTF-8.
    void run(QFile &input)
    {
        Utf8Pieces utf8;
        QByteArray bytes(pieceLength, Qt::Uninitialized);
        while (!utf8.fault()) {
            const qint64 length = input.read(bytes.data(), bytes.size());
            if (length < 0)
                throw CommandFailure{
                    QStringLiteral("%1: %2").arg(nameOf(input), input.errorString())};
            if (length == 0)
                break;
            transcribeText(utf8.feed(QByteArrayView(bytes).first(length)));
        }
        utf8.finish();
        if (const auto fault = utf8.fault())
            throw CommandFailure{
                QStringLiteral("%1: not UTF-8 at byte %2").arg(nameOf(input)).arg(*fault)};
    }

    void finish()
    {
        stream_.feed(breaks_.unify(composer_.finish()));
        stream_.feed(breaks_.finishUnifying());
        stream_.finish();
        breaks_.finishRestoring(output_);
        print(std::exchange(output_, {}));
    }

    [[nodiscard]] bool hadUndefined() const { return stream_.hadUndefined(); }

private:
    static QString nameOf(const QFile &input)
    {
        const bool isStandardInput =
            input.fileName().isEmpty() || input.fileName() == standardInput;
        return isStandardInput ? QStringLiteral("standard input") : input.fileName();
    }

    void transcribeText(const QString &text)
    {
        stream_.feed(breaks_.unify(composer_.feed(text)));
        print(std::exchange(output_, {}));
    }

    NfcPieces composer_;
    LineBreaks breaks_;
    TranscriptionStream stream_;
    QString output_;
};

} // namespace

int transcribe(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Transcribes UTF-8 text into the characters of a Tengwar font."));
    const QCommandLineOption mode(QStringLiteral("mode"),
                                  QStringLiteral("A mode's name, or its file NAME.mod."),
                                  QStringLiteral("MODE"));
    const QCommandLineOption modes(
        QStringLiteral("modes"),
        QStringLiteral("Folder of the modes (default: the one that the window uses)."),
        QStringLiteral("FOLDER"), defaultModesFolder());
    const QCommandLineOption undefined(
        QStringLiteral("undefined"),
        QStringLiteral(
            "Put out for each character that the mode does not cover (default: nothing)."),
        QStringLiteral("TEXT"));
    parser.addOptions({mode, modes, undefined});
    parser.addPositionalArgument(QStringLiteral("FILE"),
                                 QStringLiteral("Text files; standard input when there is none."),
                                 QStringLiteral("[FILE...]"));
    if (const auto status = parseCommandLine(parser, arguments))
        return *status;
    if (!parser.isSet(mode))
        return wrongUsage(QStringLiteral("transcribe needs --mode"));

    const ModeTable table = loadNamedMode(parser.value(mode), parser.value(modes));
    const std::vector<Input> inputs = openInputs(parser.positionalArguments());
    Pipeline pipeline(table, parser.value(undefined));
    for (const Input &input : inputs)
        pipeline.run(*input);
    pipeline.finish();
    if (pipeline.hadUndefined())
        complain(QStringLiteral("some of the characters were not defined in the selected mode"));
    return ExitSuccess;
}
