#pragma once

#include <QByteArray>

class QRawFont;

/// Fonts with nothing but a symbol table have their codes at U+F020 to U+F0FF. Qt finds U+0020 to
/// U+00FF there by itself, but not the other characters of code page 1252 (bytes 80 to 9F, such as
/// U+20AC).

/// A copy of such a font in which every code also stands at its character of code page 1252. Empty
/// where the font knows other characters, has no glyph in the area or is no OpenType font.
[[nodiscard]] QByteArray withCodePage(const QRawFont &font);

/// Lets the program show text of code page 1252 in all such fonts, by copies that take the place of
/// the installed ones. The text itself stays as it is. Needs a running QGuiApplication.
void showCodePageInSymbolFonts();
