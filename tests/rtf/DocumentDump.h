#pragma once

#include <QString>

class QTextDocument;

/// A document's text and attributes in lines that people can read and compare: one for each
/// paragraph's format, then one for each run. Two documents with the same dump are the same to us.
[[nodiscard]] QString dump(const QTextDocument &document);
