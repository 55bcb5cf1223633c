#pragma once

#include <QString>

class QLineEdit;
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

/// Shows every U+00AD of a line edit, which can draw nothing in its place, as U+F0AD: there symbol
/// fonts have the same sign, and other Tengwar fonts do too. In a font that hasn't it, U+00AD stays
/// and is invisible. What is copied out of the line edit has U+00AD again; its text is to be read
/// by heldText.
void showSoftHyphens(QLineEdit &edit);

/// The text that the line edit stands for.
[[nodiscard]] QString heldText(const QLineEdit &edit);
