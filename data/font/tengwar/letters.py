"""The letters: the twenty-four of stem and bow in their eight rows, and those shaped otherwise."""

from __future__ import annotations

from .geometry import curve, line
from .metrics import BASE, HANGING, MIDDLE, RAISED, TOP
from .parts import BOW, INNER_BOW, bows, flick, mirrored, moved, open_bow, closed_bow, stem, stem_lean, turned
from .sign import Letter, Place, Strokes

SINGLE = 600
DOUBLE = 900
# From the middle of a stem to the edge of its letter.
BEARING = 108

WIDE, MEDIUM, STEM, NARROW = Place.WIDE, Place.MEDIUM, Place.STEM, Place.NARROW

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
        body += flick(stem_lean(top), top, 48 if top == TOP else 62)
    return moved(body, advance - BEARING), advance


def places(series: int, top: float, foot: float, count: int) -> tuple[Place, Place]:
    """Where marks above and below stand: over and under the bows, clear of long stems."""
    if count == 2:
        return WIDE, WIDE
    rightward = series < 2
    above = STEM if top == RAISED and rightward else MEDIUM
    below = MEDIUM if foot == BASE else STEM if rightward else WIDE
    return above, below


def primaries() -> dict[int, Letter]:
    letters = {}
    for keys, *shape in ROWS:
        for series, key in enumerate(keys):
            strokes, advance = primary(series, *shape)
            letters[ord(key)] = Letter(NAMES[key], strokes, advance, *places(series, *shape))
    return letters


def romen() -> Strokes:
    return flick(116, TOP, 56) + (
        curve((116, TOP, -86), (160, 200, -72), (272, 66, -30)),
        curve((318, 330, 120), (396, TOP, 0), (462, 318, -95), (330, 80, -128), (150, -250, -112), (128, -372, -75)),
        curve((128, -372, -75), (168, -400, 10)),
    )


def silme(neck: float = RAISED) -> Strokes:
    return (
        curve(
            (534, neck - 10, 150),
            (395, neck - 105, -142),
            (150, 360, -112),
            (100, 205, -90),
            (296, BASE, 0),
            (484, 170, 90),
            (352, 305, 180),
            (272, 248, -110),
        ),
    )


def esse(neck: float = RAISED) -> Strokes:
    return (
        curve((530, neck - 10, 150), (400, neck - 100, -142), (170, 430, -120), (128, 325, -90), (290, 206, -8)),
        curve(
            (290, 206, 190),
            (92, 14, -90),
            (290, -165, 0),
            (486, -18, 90),
            (366, 104, 180),
            (290, 50, -110),
        ),
    )


def lambda_shape(top: float, left: float, right: float, foot: float) -> Strokes:
    """hyarmen and yanta: a long stroke to the lower right and a leg from its middle."""
    fork = left + 0.47 * (right - left), BASE + 0.52 * (min(top, 560) - BASE)
    return flick(left, top) + (
        curve((left, top, -82), (*fork, -62), (right, BASE, -38)),
        curve((fork[0] - 6, fork[1] + 6, -128), (foot, BASE, -136)),
    )


def round_o(x: float, width: float) -> Strokes:
    half = width / 2
    left = curve((x + 20, TOP - 4, 165), (x - half, MIDDLE - 6, -90), (x, BASE, 0))
    return (left, curve((x, BASE, 0), (x + half, MIDDLE + 6, 90), (x, TOP, 180)))


def osse() -> Strokes:
    return (curve((452, 330, 118), (296, TOP, 180), (92, MIDDLE - 6, -90), (300, BASE, 0), (474, 112, 52)),)


def lambe() -> Strokes:
    return (
        curve((58, TOP - 34, 40), (150, TOP - 6, 5), (400, TOP - 8, 0), (660, TOP + 4, 12)),
        curve((330, TOP - 8, -162), (96, 100, -90), (360, -232, 0), (612, -100, 78), (562, -22, 140)),
    )


def alda() -> Strokes:
    return (
        curve((58, TOP - 34, 40), (150, TOP - 6, 5), (400, TOP - 8, 0), (640, TOP + 4, 12)),
        curve(
            (300, TOP - 8, -165),
            (148, 292, -90),
            (320, 178, -10),
            (556, -30, -90),
            (340, -232, 180),
            (112, -120, 95),
            (156, -48, 45),
        ),
    )


def hwesta_sindarinwa(foot_from: float, foot_to: float) -> Strokes:
    bowl = curve((430, 318, 124), (262, TOP, 180), (78, MIDDLE - 8, -90), (240, BASE, 0), (430, 160, 55))
    foot = curve((foot_from, BASE, 0), ((foot_from + foot_to) / 2, BASE - 2, 0), (foot_to, BASE + 14, 24))
    return flick(430 + stem_lean(RAISED), RAISED) + moved(stem(RAISED, BASE), 430) + (bowl, foot)


def others() -> dict[int, Letter]:
    short_esse = turned(esse(600), 300, 122)
    table = {
        "7": Letter("romen", romen(), 560, MEDIUM, NARROW),
        "u": Letter("arda", romen() + (curve((62, 72, -25), (150, 40, 0), (282, 62, 20)),), 560, MEDIUM, NARROW),
        "j": Letter("lambe", lambe(), 700, MEDIUM, MEDIUM, room=(350, 140)),
        "m": Letter("alda", alda(), 700, MEDIUM, MEDIUM, room=(330, 40)),
        "8": Letter("silme", silme(), 600, WIDE, MEDIUM),
        "i": Letter("silmenuquerna", turned(silme(), 300, MIDDLE), 600, MEDIUM, NARROW),
        "k": Letter("esse", esse(), 600, WIDE, MEDIUM, room=(290, -235)),
        ",": Letter("essenuquerna", short_esse, 600, MEDIUM, MEDIUM, room=(440, -205)),
        "9": Letter("hyarmen", lambda_shape(RAISED, 112, 520, 78), 600, NARROW, MEDIUM),
        "o": Letter("hwestasindarinwa", hwesta_sindarinwa(430, 640), 690, WIDE, MEDIUM),
        "l": Letter("yanta", lambda_shape(TOP, 112, 476, 84), 560),
        ".": Letter("ure", round_o(280, 384), 560),
        "]": Letter("osse", osse(), 540),
        "`": Letter("telco", moved(flick(0, TOP) + stem(TOP, BASE), 150), 290, NARROW, NARROW),
        "~": Letter("ara", moved(flick(0, TOP) + stem(TOP, HANGING), 150), 290, NARROW, NARROW, room=(250, -205)),
        "½": Letter("halla", moved(flick(0, RAISED) + stem(RAISED, BASE), 146), 290, NARROW, NARROW),
    }
    return {key.encode("cp1252")[0]: letter for key, letter in table.items()}


LETTERS = primaries() | others()
