#pragma once

class QTextDocument;

/// Text layout prefers to break lines between words. Where there is nothing but one word, it looks
/// through all the rest of that word anew for every line, which takes minutes for a hundred
/// thousand characters; breaking lines anywhere looks the same there and takes a moment.

/// Whether a word stands in the paragraphs between two positions of the document that is too long
/// for lines to be broken between words: none below 2,000 characters is, each above 4,000 is.
[[nodiscard]] bool haveLongWord(const QTextDocument &document, int from, int to);
