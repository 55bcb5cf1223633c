#pragma once

#include "rtf/RtfError.h"
#include <QByteArrayView>
#include <QString>
#include <optional>

class QIODevice;
class QTextDocument;

/// Whether these bytes begin as RTF does; a byte order mark and white space may stand before. What
/// does not is plain text to this library.
[[nodiscard]] bool looksLikeRtf(QByteArrayView bytes);

/// Replaces the document's text by that of an RTF file; RtfFormat.h says how it is kept. The
/// document's undo history is cleared and stays off or on as it was.
///
/// The file of any word processor is read, and a damaged one as far as it can be understood.
/// Tables become rows of tabs, fields their results, lists bullets or their labels; the text of
/// footnotes stands at the end, that of a text box after its paragraph. Headers, footers,
/// annotations, pictures and unknown groups are left out.
///
/// Errors: NotRtf leaves the document as it was, TooLarge leaves it empty. A document that is not
/// yet shown is filled much faster.
[[nodiscard]] std::optional<RtfError> readRtf(QByteArrayView bytes, QTextDocument &document);

/// The same from a device, read to its end; ReadFailed leaves the document as it was.
[[nodiscard]] std::optional<RtfError> readRtf(QIODevice &device, QTextDocument &document);

/// The text of an RTF file, with LF for line breaks and between paragraphs, and U+2022 and a space
/// before those with bullets. A page break is U+000C. On TooLarge `text` holds what came before.
[[nodiscard]] std::optional<RtfError> readRtfText(QByteArrayView bytes, QString &text);
