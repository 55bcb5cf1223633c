#include "rtf/RtfReader.h"

#include "rtf/RtfDocumentBuilder.h"
#include "rtf/RtfInterpreter.h"
#include "rtf/RtfTextBuilder.h"
#include <QIODevice>
#include <QTextDocument>

bool looksLikeRtf(QByteArrayView bytes)
{
    constexpr QByteArrayView mark("\xEF\xBB\xBF");
    if (bytes.startsWith(mark))
        bytes = bytes.sliced(mark.size());
    return bytes.trimmed().startsWith("{\\rtf");
}

std::optional<RtfError> readRtf(QByteArrayView bytes, QTextDocument &document)
{
    if (!looksLikeRtf(bytes))
        return RtfError{RtfError::What::NotRtf, 0};
    const bool keepsUndo = document.isUndoRedoEnabled();
    document.setUndoRedoEnabled(false);
    document.clear();
    std::optional<RtfError> error;
    {
        RtfDocumentBuilder builder(document);
        error = RtfInterpreter(bytes, builder).run();
    }
    if (error)
        document.clear();
    document.setUndoRedoEnabled(keepsUndo);
    return error;
}

std::optional<RtfError> readRtf(QIODevice &device, QTextDocument &document)
{
    QByteArray bytes;
    constexpr qint64 pieceSize = 1 << 20;
    while (true) {
        const QByteArray piece = device.read(pieceSize);
        if (piece.isEmpty())
            break;
        bytes.append(piece);
    }
    if (!device.atEnd())
        return RtfError{RtfError::What::ReadFailed, bytes.size()};
    return readRtf(bytes, document);
}

std::optional<RtfError> readRtfText(QByteArrayView bytes, QString &text)
{
    if (!looksLikeRtf(bytes))
        return RtfError{RtfError::What::NotRtf, 0};
    RtfTextBuilder builder(text);
    return RtfInterpreter(bytes, builder).run();
}
