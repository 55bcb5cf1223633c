#pragma once

class QTextDocument;

/// Text layout prefers to break lines between words. Where there is nothing but one word, it looks
/// through all the rest of that word anew for every line, which takes minutes for a hundred
/// thousand characters; breaking lines anywhere looks the same there and takes a moment. It parts
/// the words of the other paragraphs too, so it is kept for words that really need it.

/// Whether a word of more than 10,000 characters, between which lines can't be broken, stands in
/// the paragraphs between two positions of the document.
[[nodiscard]] bool haveLongWord(const QTextDocument &document, int from, int to);
