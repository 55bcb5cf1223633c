#pragma once

#include <QByteArray>

class QTextDocument;

/// A document as RTF 1.7: ASCII only, its last byte the final brace, the same bytes for the same
/// text and attributes (RtfFormat.h). What readRtf makes of it is written as the same bytes again.
///
/// Characters are written as bytes of code page 1252 where the font's character set has that page,
/// else as \u. Bullets are written in both forms, the old one and that of the list tables.
[[nodiscard]] QByteArray writeRtf(const QTextDocument &document);
