#pragma once

#include <QString>

class QTextBlock;
class QTextCursor;
class QTextDocument;

/// Positions of a document as its user counts them: each paragraph ends in CR LF, two characters,
/// where the document itself has one separator. So a user's position is the document's position
/// plus the number of paragraphs before it.

/// The user's position of a document position.
[[nodiscard]] int userPosition(const QTextDocument &document, int documentPosition);

/// The document position of a user's position: the nearest end of the text if it lies outside,
/// and the end of the paragraph if it lies between its CR and LF.
[[nodiscard]] int documentPosition(const QTextDocument &document, int userPosition);

/// The length of the whole text as its user counts it.
[[nodiscard]] int userLength(const QTextDocument &document);

/// The text between two document positions as its user sees it: CR LF between paragraphs, a soft
/// line break as code 11, U+00AD where the document has its stand-in, everything else as it stands.
[[nodiscard]] QString userText(const QTextDocument &document, int from, int to);

/// The form in which the document takes such a text: LF after each paragraph, U+2028 for a soft
/// line break, U+FFFC for U+00AD. CR LF, CR, LF and U+2029 each end a paragraph. U+FFFC, U+FDD0 and
/// U+FDD1, which the document needs for itself, become U+FFFD.
[[nodiscard]] QString documentText(const QString &userText);

/// The text as it reads back from a document that it was put into.
[[nodiscard]] QString userForm(const QString &text);
