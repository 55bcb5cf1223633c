#pragma once

#include <QChar>

class QTextDocument;

/// U+00AD is a letter of some fonts, but text layout hides it. A document therefore holds U+FFFC
/// where its user's text has U+00AD, and draws there the glyph that the font has for U+00AD.
constexpr QChar softHyphen(u'\u00AD');
constexpr QChar shownSoftHyphen(QChar::ObjectReplacementCharacter);

/// Makes the document's layout draw the glyph of U+00AD for every U+FFFC.
void showSoftHyphens(QTextDocument &document);

/// Puts U+FFFC in the place of each U+00AD of a document, and U+FFFD in that of each U+FFFC, which
/// means something else elsewhere. Formats stay.
void holdSoftHyphens(QTextDocument &document);
