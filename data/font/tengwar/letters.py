"""The letters: the twenty-four of stem and bow in their eight rows, and those shaped otherwise."""

from __future__ import annotations

from .codes import by_code
from .geometry import curve
from .metrics import BASE, HANGING, MIDDLE, RAISED, TOP
from .parts import bows, flick, moved, stem, stem_lean, turned
from .sign import (
    ABOVE,
    BAR_ABOVE,
    BAR_BELOW,
    BAR_FAR,
    BAR_HIGH,
    BELOW,
    INSIDE,
    MEDIUM,
    NARROW,
    STEM,
    WIDE,
    Exceptions,
    Letter,
    Place,
    Strokes,
)

SINGLE = 630
DOUBLE = 930
# From the middle of a stem to the edge of its letter.
BEARING = 118

# Keys of the four series (tinco, parma, calma, quesse), top and foot of the stem, count of bows.
ROWS = (
    ("1qaz", TOP, HANGING, 1),
    ("2wsx", TOP, HANGING, 2),
    ("3edc", RAISED, BASE, 1),
    ("4rfv", RAISED, BASE, 2),
    ("5tgb", TOP, BASE, 2),
    ("6yhn", TOP, BASE, 1),
    ("!QAZ", RAISED, HANGING, 1),
    ("@WSX", RAISED, HANGING, 2),
)
NAMES = {
    "1": "tinco", "q": "parma", "a": "calma", "z": "quesse",
    "2": "ando", "w": "umbar", "s": "anga", "x": "ungwe",
    "3": "thule", "e": "formen", "d": "harma", "c": "hwesta",
    "4": "anto", "r": "ampa", "f": "anca", "v": "unque",
    "5": "numen", "t": "malta", "g": "noldo", "b": "nwalme",
    "6": "ore", "y": "vala", "h": "anna", "n": "vilya",
    "!": "exttinco", "Q": "extparma", "A": "extcalma", "Z": "extquesse",
    "@": "extando", "W": "extumbar", "S": "extanga", "X": "extungwe",
}  # fmt: skip


def primary(series: int, top: float, foot: float, count: int) -> tuple[Strokes, float]:
    """Strokes and advance of one of the letters made of a stem and one or two bows."""
    advance = SINGLE if count == 1 else DOUBLE
    closed = series in (1, 3)
    body = stem(top, foot) + bows(count, closed)
    if series < 2:
        return moved(body + flick(stem_lean(top), top), BEARING), advance
    body = stem(top, foot) + turned(bows(count, closed), 0, MIDDLE)
    if not closed or top == RAISED:
        body += flick(stem_lean(top), top, 46)
    return moved(body, advance - BEARING), advance


def places(series: int, top: float, foot: float, count: int) -> tuple[Place, Place]:
    """Where marks above and below stand: over and under the bows, clear of long stems."""
    if count == 2:
        return WIDE, WIDE
    rightward = series < 2
    above = STEM if top == RAISED and rightward else MEDIUM
    below = MEDIUM if foot == BASE else STEM if rightward else WIDE
    return above, below


def beside_stem(series: int, top: float, foot: float, count: int) -> Exceptions:
    """What passes beside a long stem keeps a little more room from it."""
    aside = 14 if series < 2 else -14
    axis = (SINGLE if count == 1 else DOUBLE) / 2 + aside
    exceptions: Exceptions = {}
    if top == RAISED:
        exceptions[BAR_ABOVE] = (axis,)
        if count == 1:
            exceptions[ABOVE] = (364,) if series < 2 else (270,)
    if foot == HANGING:
        exceptions[BAR_BELOW] = (axis,)
    return exceptions


def primaries() -> dict[int, Letter]:
    letters = {}
    for keys, *shape in ROWS:
        for series, key in enumerate(keys):
            strokes, advance = primary(series, *shape)
            exceptions = beside_stem(series, *shape)
            letters[ord(key)] = Letter(NAMES[key], strokes, advance, *places(series, *shape), exceptions)
    return letters


def romen(foot: float = HANGING) -> Strokes:
    return flick(112, TOP, 58) + (
        curve((112, TOP, -88), (160, 190, -72), (268, 84, -30)),
        curve(
            (300, 318, 112),
            (386, TOP, 0),
            (460, 306, -97),
            (322, 66, -130),
            (166, foot + 180, -112),
            (148, foot + 50, -86),
            (212, foot + 6, 16),
        ),
    )


def silme() -> Strokes:
    return (
        curve(
            (520, RAISED - 62, 100),
            (472, RAISED - 6, -170),
            (272, 600, -122),
            (98, 216, -91),
            (300, BASE, 0),
            (494, 186, 90),
            (352, 334, 180),
            (262, 262, -102),
        ),
    )


def esse() -> Strokes:
    return (
        curve((516, RAISED - 62, 100), (468, RAISED - 6, -170), (270, 610, -124), (122, 322, -88), (300, 206, -4)),
        curve((300, 206, 184), (88, 18, -90), (290, -165, 0), (490, -20, 90), (362, 112, 180), (278, 50, -105)),
    )


def esse_nuquerna() -> Strokes:
    """Two bowls like a 3, the lower one running out into a tail to the left."""
    return (
        curve((304, 232, 160), (220, 214, -150), (106, 312, 80), (292, TOP, 0), (496, 268, -90), (310, 92, 183)),
        curve((310, 92, 3), (448, -24, -94), (250, -296, -134), (120, -388, 172), (62, -306, 100)),
    )


def lambda_shape(top: float, bend: float, right: float, foot: float) -> Strokes:
    """hyarmen and yanta: a long stroke to the lower right and a leg from its middle.

    bend is the direction in which the long stroke sets out.
    """
    left = 112
    fork = 0.52 * (left + right) - 14, 300 if top == RAISED else 226
    return flick(left, top) + (
        curve((left, top, bend), fork, (right, BASE + 6, -42), (right + 32, BASE + 10, 35)),
        curve((fork[0] - 10, fork[1] - 8, -130), (foot, BASE - 4, -135)),
    )


def round_o(x: float, width: float) -> Strokes:
    half = width / 2
    left = curve((x + 16, TOP, 180), (x - half, MIDDLE - 8, -90), (x - 10, BASE, 0))
    return (left, curve((x - 16, BASE, 0), (x + half, MIDDLE + 8, 90), (x + 10, TOP, 180)))


def osse() -> Strokes:
    return (curve((440, 346, 122), (296, TOP, 180), (90, MIDDLE - 6, -90), (290, BASE, 0), (470, 100, 40)),)


def lambe() -> Strokes:
    return (
        curve((52, TOP - 40, 40), (130, TOP - 4, 8), (380, TOP - 4, 0), (652, TOP + 8, 14)),
        curve((340, TOP - 4, -164), (94, 86, -90), (362, -252, 0), (616, -104, 84), (560, -22, 145)),
    )


def alda() -> Strokes:
    return (
        curve((52, TOP - 40, 40), (130, TOP - 4, 8), (360, TOP - 4, 0), (622, TOP + 8, 14)),
        curve(
            (316, TOP - 4, -166),
            (150, 304, -90),
            (330, 190, -8),
            (570, -34, -90),
            (336, -254, 180),
            (94, -122, 96),
            (148, -46, 35),
        ),
    )


def d_shape(lift: float = 0) -> Strokes:
    """A raised stem with a round bow at its left, whose bottom is lifted from the baseline."""
    bowl = curve(
        (430, 318, 124),
        (262, TOP, 180),
        (78, MIDDLE - 8 + lift / 2, -90),
        (240, BASE + lift, 0),
        (430, 160 + lift / 2, 55),
    )
    return moved(flick(stem_lean(RAISED), RAISED, 48) + stem(RAISED, BASE), 430) + (bowl,)


def hwesta_sindarinwa() -> Strokes:
    return d_shape() + (curve((430, BASE, 0), (535, BASE - 2, 0), (640, BASE + 14, 24)),)


def carrier(name: str, top: float, foot: float, exceptions: Exceptions) -> Letter:
    """A bare stem. Bars, which have no narrow form, stand over and under its middle."""
    bars = {band: (150.0,) for band in (BAR_ABOVE, BAR_BELOW, BAR_HIGH, BAR_FAR)}
    strokes = moved(flick(stem_lean(top), top) + stem(top, foot), 150)
    return Letter(name, strokes, 300, NARROW, NARROW, bars | exceptions)


def others() -> dict[int, Letter]:
    arda_nib = curve((62, 72, -25), (150, 40, 0), (282, 62, 20))
    beside_tail = {BAR_BELOW: (400,)}
    in_bowl = {BELOW: (350, 140), BAR_BELOW: (350, 90)}
    in_lower_bowl = {BELOW: (338, 16), BAR_BELOW: (336, -36), INSIDE: (338, -38)}
    beside_long_tail = {BELOW: (490,), BAR_BELOW: (140,)}
    beside_bowl = {BELOW: (500,), BAR_BELOW: (190,)}
    beside_stem_at_right = {ABOVE: (198,), BAR_ABOVE: (220,)}
    under_bowl = {BELOW: (290, -300), BAR_BELOW: (290, -280)}
    under_neck = {ABOVE: (116,), BAR_ABOVE: (474,)}
    table = {
        "7": Letter("romen", romen(), 570, MEDIUM, NARROW, beside_tail),
        "u": Letter("arda", romen() + (arda_nib,), 570, MEDIUM, NARROW, beside_tail),
        "j": Letter("lambe", lambe(), 730, MEDIUM, MEDIUM, in_bowl),
        "m": Letter("alda", alda(), 730, MEDIUM, MEDIUM, in_lower_bowl),
        "8": Letter("silme", silme(), 610, WIDE, MEDIUM, under_neck),
        "i": Letter("silmenuquerna", turned(silme(), 300, MIDDLE), 610, MEDIUM, NARROW, beside_long_tail),
        "k": Letter("esse", esse(), 610, WIDE, MEDIUM, under_neck | under_bowl),
        ",": Letter("essenuquerna", esse_nuquerna(), 610, MEDIUM, MEDIUM, beside_bowl),
        "9": Letter("hyarmen", lambda_shape(RAISED, -80, 506, 108), 610, NARROW, MEDIUM, {BAR_ABOVE: (440,)}),
        "o": Letter("hwestasindarinwa", hwesta_sindarinwa(), 690, WIDE, MEDIUM, beside_stem_at_right),
        "l": Letter("yanta", lambda_shape(TOP, -62, 462, 104), 560),
        ".": Letter("ure", round_o(280, 384), 570),
        "]": Letter("osse", osse(), 550),
        "`": carrier("telco", TOP, BASE, {}),
        "~": carrier("ara", TOP, HANGING, {BELOW: (330,), BAR_BELOW: (350,)}),
        # Over a stem that reaches the height of the marks itself, they stand beside it.
        "½": carrier("halla", RAISED, BASE, {ABOVE: (350,), BAR_ABOVE: (350,)}),
    }
    return by_code(table)


LETTERS = primaries() | others()
