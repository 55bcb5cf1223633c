"""Writes the styles of the font "Tengwar Quillon" into a folder.

usage: make_fonts.py FOLDER VERSION

The same sources give the same bytes.
"""

from __future__ import annotations

import contextlib
import os
import sys
import tempfile
from pathlib import Path

# The date that the fonts carry (2026-01-01), whenever they are made.
os.environ["SOURCE_DATE_EPOCH"] = "1767225600"

import fontforge  # noqa: E402  (reads the environment)

sys.path.insert(0, str(Path(__file__).parent))

from tengwar import kerning, metrics  # noqa: E402
from tengwar.codes import code_of, unicode_of  # noqa: E402
from tengwar.hooks import VARIANTS  # noqa: E402
from tengwar.metrics import STYLES, Style  # noqa: E402
from tengwar.outline import draw  # noqa: E402
from tengwar.places import HEIGHTS, anchor  # noqa: E402
from tengwar.repertoire import CARRYING, SIGNS, floating_marks, private_codes  # noqa: E402
from tengwar.sign import Band, Mark, Sign  # noqa: E402

FAMILY = "Tengwar Quillon"
COPYRIGHT = "Copyright (c) 2026 The Quillon developers"
LICENCE = "MIT License: free to use, change and pass on, with this notice."
SCRIPTS = (("DFLT", ("dflt",)), ("latn", ("dflt",)))
# Fonts with a symbol table have their codes from here on; text written for them shows as well, and
# the no-break space and the soft hyphen have characters that text engines leave alone.
SYMBOL_AREA = 0xF000
# Anchor classes: of the eight-bit table's marks, and of those of the private-use arrangement.
PLACED, FLOATING = "placed ", "floating "


def glyph_name(sign: Sign) -> str:
    """A name of our own, so that no program takes the sign for a Latin one."""
    return "tq_" + sign.name.replace(".", "_")


def add_sign(font, style: Style, character: int, sign: Sign, others=()) -> None:
    glyph = font.createChar(character, glyph_name(sign))
    draw(glyph, sign, style)
    if others:
        glyph.altuni = tuple((other, -1, 0) for other in others)
    glyph.glyphclass = "mark" if isinstance(sign, Mark) else "baseglyph"


def add_anchors(font, style: Style) -> None:
    """Anchors of all letters for the floating marks; for those of the eight-bit table, which have
    their place by themselves, only of letters that are in the way of it."""

    def attach(sign: Sign, anchor_class: str, kind: str, point: tuple[float, float]) -> None:
        place = style.skeleton(complex(*point))
        font[glyph_name(sign)].addAnchorPoint(anchor_class, kind, round(place.real), round(place.imag))

    def attach_marks(marks, prefix: str) -> None:
        for mark in marks:
            if isinstance(mark, Mark) and mark.band:
                attach(mark, prefix + mark.band.value, "mark", (mark.middle, HEIGHTS[mark.band]))

    font.addLookup("marks", "gpos_mark2base", (), (("mark", SCRIPTS),))
    for prefix in (PLACED, FLOATING):
        for band in Band:
            font.addLookupSubtable("marks", f"marks {prefix}{band.value}")
            font.addAnchorClass(f"marks {prefix}{band.value}", prefix + band.value)
    for letter in CARRYING:
        for band in Band:
            attach(letter, FLOATING + band.value, "base", anchor(letter, band))
            if band in letter.exceptions:
                attach(letter, PLACED + band.value, "base", anchor(letter, band))
    attach_marks(SIGNS.values(), PLACED)
    attach_marks(floating_marks().values(), FLOATING)


def add_kerning(font, style: Style) -> None:
    font.addLookup("kerning", "gpos_pair", ("ignore_marks",), (("kern", SCRIPTS),))
    font.addLookupSubtable("kerning", "kerning pairs")
    for left, right, distance in kerning.pairs():
        glyph = font[glyph_name(SIGNS[left])]
        glyph.addPosSub("kerning pairs", glyph_name(SIGNS[right]), round(distance * style.advance_scale))


def add_variants(font, style: Style) -> None:
    """Hooks in another shape behind signs that are in the way of their own."""

    def coverage(keys: str) -> str:
        return "[" + " ".join(glyph_name(SIGNS[code_of(key)]) for key in keys) + "]"

    for variant in VARIANTS:
        name = variant.sign.name
        add_sign(font, style, -1, variant.sign)
        font.addLookup(name, "gsub_single", (), ())
        font.addLookupSubtable(name, name + " shape")
        font[glyph_name(SIGNS[variant.code])].addPosSub(name + " shape", glyph_name(variant.sign))
        font.addLookup(name + " use", "gsub_contextchain", (), (("ccmp", SCRIPTS),))
        for number, sequence in enumerate(variant.behind):
            hook = "[" + glyph_name(SIGNS[variant.code]) + "]"
            before = " ".join(coverage(keys) for keys in sequence)
            font.addContextualSubtable(
                name + " use", f"{name} use {number}", "coverage", f"{before} | {hook} @<{name}> |"
            )


def set_metrics(font, style: Style) -> None:
    font.em = metrics.EM
    font.ascent, font.descent = 800, 200
    for kind in ("hhea_ascent", "os2_winascent", "os2_typoascent"):
        setattr(font, kind + "_add", 0)
        setattr(font, kind, metrics.ASCENT)
    for kind, sign in (("hhea_descent", -1), ("os2_windescent", 1), ("os2_typodescent", -1)):
        setattr(font, kind + "_add", 0)
        setattr(font, kind, sign * metrics.DESCENT)
    font.hhea_linegap = font.os2_typolinegap = 0
    font.os2_use_typo_metrics = True
    font.italicangle = style.italic_angle
    font.upos, font.uwidth = -150, 40


def set_names(font, style: Style, version: str) -> None:
    postscript = style.name.replace(" ", "")
    font.familyname = FAMILY
    font.fontname = f"{FAMILY.replace(' ', '')}-{postscript}"
    font.fullname = f"{FAMILY} {style.name}"
    font.weight = "Bold" if style.weight > 400 else "Regular"
    font.version = version
    font.copyright = COPYRIGHT
    names = {
        "SubFamily": style.name,
        "UniqueID": f"{version};{font.fontname}",
        "Version": f"Version {version}",
        "License": LICENCE,
        "Manufacturer": "The Quillon developers",
    }
    for key, text in names.items():
        font.appendSFNTName("English (US)", key, text)
    bold, italic = style.weight > 400, style.italic_angle != 0
    font.os2_weight = style.weight
    font.os2_fstype = 0
    font.os2_vendor = "QUIL"
    font.os2_stylemap = (0x20 if bold else 0) | (0x01 if italic else 0) or 0x40
    font.macstyle = (1 if bold else 0) | (2 if italic else 0)


def set_hints(font) -> None:
    font.private["BlueValues"] = (-14, 0, metrics.X_HEIGHT, metrics.X_HEIGHT + 14)
    font.private["OtherBlues"] = ()
    for glyph in font.glyphs():
        glyph.autoHint()


def add_notdef(font) -> None:
    glyph = font.createChar(-1, ".notdef")
    pen = glyph.glyphPen()
    for inset, clockwise in ((0, True), (36, False)):
        left, right, low, high = 60 + inset, 440 - inset, inset, 640 - inset
        corners = [(left, low), (left, high), (right, high), (right, low)]
        if not clockwise:
            corners.reverse()
        pen.moveTo(corners[0])
        for corner in corners[1:]:
            pen.lineTo(corner)
        pen.closePath()
    pen = None
    glyph.width = 500


def make_font(style: Style, version: str):
    font = fontforge.font()
    font.encoding = "UnicodeFull"
    set_metrics(font, style)
    set_names(font, style, version)
    add_notdef(font)
    private = private_codes()
    for code, sign in sorted(SIGNS.items()):
        add_sign(font, style, unicode_of(code), sign, [*private.get(code, ()), SYMBOL_AREA + code])
    for character, mark in floating_marks().items():
        add_sign(font, style, character, mark)
    add_variants(font, style)
    add_anchors(font, style)
    add_kerning(font, style)
    set_hints(font)
    return font


@contextlib.contextmanager
def complaints_are_errors():
    """FontForge tells of a union of strokes that failed only on the error output of the process."""
    with tempfile.TemporaryFile() as complaints:
        kept = os.dup(2)
        os.dup2(complaints.fileno(), 2)
        try:
            yield
        finally:
            os.dup2(kept, 2)
            os.close(kept)
            complaints.seek(0)
            text = complaints.read().decode(errors="replace")
            sys.stderr.write(text)
    if "Internal Error" in text:
        raise SystemExit("An outline is broken: let its strokes cross at a wider angle")


def main() -> None:
    folder, version = Path(sys.argv[1]), sys.argv[2]
    folder.mkdir(parents=True, exist_ok=True)
    with complaints_are_errors():
        for style in STYLES:
            font = make_font(style, version)
            font.generate(str(folder / f"{font.fontname}.otf"), flags=("opentype", "no-FFTM-table"))


if __name__ == "__main__":
    main()
