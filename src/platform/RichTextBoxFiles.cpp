#include "platform/RichTextBox.h"

#include "engine/RuntimeError.h"
#include "platform/AtomicFile.h"
#include "platform/SoftHyphen.h"
#include "platform/TextPosition.h"
#include "rtf/RtfReader.h"
#include "rtf/RtfWriter.h"
#include <QAbstractTextDocumentLayout>
#include <QPrinter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <memory>

// The content as files and on paper.

namespace {

constexpr qint64 largestFile = qint64(100) << 20;

void fillFromRtf(QTextDocument &document, QByteArrayView bytes, const QString &path)
{
    const std::optional<RtfError> error = readRtf(bytes, document);
    if (!error)
        return;
    const bool isTooLarge = error->what == RtfError::What::TooLarge;
    throw RuntimeError(isTooLarge ? ErrorNumber::OutOfMemory : ErrorNumber::DeviceIo, path);
}

/// Refuses a text whose RTF could not be read again: it could neither be undone nor be kept.
void requireReadableAsRtf(const QString &text, const QString &path)
{
    constexpr qint64 piecesOfLine = 2; // the paragraph and its characters
    if ((text.count(u'\n') + 1) * piecesOfLine > RtfLimits::pieces)
        throw RuntimeError(ErrorNumber::OutOfMemory, path);
}

/// Fills an empty document with a text, in documentText's form, that looks as the start of another
/// document does.
void fillFromText(QTextDocument &document, const QString &text, const QTextDocument &model)
{
    ParagraphFormat paragraph = ParagraphFormat::of(model.firstBlock().blockFormat());
    paragraph.bullet = false;
    QTextBlockFormat blockFormat;
    paragraph.applyTo(blockFormat);
    QTextCursor cursor(&document);
    cursor.setBlockFormat(blockFormat);
    cursor.insertText(text, firstFormat(model));
}

} // namespace

void RichTextBox::LoadFile(const QString &path, std::optional<FileType> type)
{
    const QByteArray bytes = readFile(path, largestFile);
    const bool isRichText = type ? *type == FileType::RichText : looksLikeRtf(bytes);
    // Filled before it is shown, which is much faster and leaves the present content on failure.
    auto loaded = std::make_unique<QTextDocument>();
    loaded->setUndoRedoEnabled(false);
    loaded->setDefaultFont(document()->defaultFont());
    if (isRichText) {
        fillFromRtf(*loaded, bytes, path);
        holdSoftHyphens(*loaded);
    } else {
        const DecodedText decoded = decodeText(bytes, textForm_);
        const QString text = documentText(decoded.text);
        requireReadableAsRtf(text, path);
        fillFromText(*loaded, text, *document());
        textForm_ = decoded.form;
    }
    showDocument(*loaded.release());
}

void RichTextBox::SaveFile(const QString &path, FileType type) const
{
    writeFile(path, type == FileType::RichText ? TextRTF() : encodeText(Text(), textForm_));
}

QByteArray RichTextBox::TextRTF() const
{
    return writeRtf(*document());
}

void RichTextBox::SelPrint(QPrinter &printer) const
{
    const std::unique_ptr<QTextDocument> copy(document()->clone());
    if (textCursor().hasSelection()) {
        copy->clear();
        QTextCursor(copy.get()).insertFragment(textCursor().selection());
    }
    applyPageBreaks(*copy);
    showSoftHyphens(*copy);
    // Laid out for the printer's own pages, it is printed without the page numbers that Qt adds.
    copy->documentLayout()->setPaintDevice(&printer);
    copy->setPageSize(QSizeF(printer.width(), printer.height()));
    copy->print(&printer);
}
