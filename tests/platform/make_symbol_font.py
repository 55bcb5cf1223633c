"""Makes a font with nothing but a symbol table, as the oldest Tengwar fonts have, of our own one.

usage: make_symbol_font.py FONT SYMBOL_FONT
"""

import sys

import fontforge

SYMBOL_AREA = 0xF000


def code_of(character: int) -> int | None:
    try:
        return chr(character).encode("cp1252")[0]
    except (UnicodeEncodeError, ValueError):
        return None


font = fontforge.open(sys.argv[1])
for glyph in font.glyphs():
    glyph.altuni = None
    code = code_of(glyph.unicode)
    glyph.unicode = -1 if code is None else SYMBOL_AREA + code
font.familyname, font.fontname, font.fullname = "Symbol Test", "SymbolTest", "Symbol Test"
font.sfnt_names = ()
font.generate(sys.argv[2], flags=("symbol", "no-FFTM-table"))
