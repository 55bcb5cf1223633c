"""The marks: tehtar above and below, bars and tildes, what stands inside lambe, and the hooks.

Each tehta is drawn once about x = 0 and set in the places that its codes have.
"""

from __future__ import annotations

from dataclasses import replace

from .geometry import Stroke, curve, line
from .metrics import BASE, TOP
from .parts import mirrored, moved, turned
from .sign import Band, Mark, Place, Sign, Strokes

WIDE, MEDIUM, STEM, NARROW = Place.WIDE, Place.MEDIUM, Place.STEM, Place.NARROW

# From the right edge of a letter back to the axis of the mark.
ABOVE = {WIDE: 465, MEDIUM: 315, STEM: 265, NARROW: 150}
BELOW = {WIDE: 445, MEDIUM: 315, STEM: 265, NARROW: 150}
# From the right edge of a lambe to the middle of its bowl.
INSIDE = 380

# Heights of the pen's middle: the band of the marks above, the tops of those below, and the bars.
ABOVE_FOOT, ABOVE_TOP = 665, 795
BELOW_TOP = -235
BAND_HEIGHTS = {
    Band.ABOVE: 730,
    Band.BELOW: BELOW_TOP,
    Band.BAR_ABOVE: 562,
    Band.BAR_BELOW: -124,
    Band.BAR_HIGH: 894,
    Band.BAR_FAR: -512,
    Band.INSIDE: 90,
}
# Bars near the letter pass beside long stems on either side; those beyond the stems may be longer.
BAR_LENGTH = {WIDE: 480, MEDIUM: 184}
LONG_BAR_LENGTH = {WIDE: 600, MEDIUM: 290}


# Dots, bars and strokes are written with the pen of the letters, what bends with a smaller one.
FINE = 0.72
FINE_SHAPES = {"rightcurl", "leftcurl", "backcurl", "caron", "circumflex", "wsign", "ring", "doublerightcurl", "doubleleftcurl", "doubleacute"}


def pen_of(name: str) -> float:
    return FINE if name in FINE_SHAPES else 1.0


def dot(x: float, y: float) -> Stroke:
    """A short pull of the pen across its edge: a lozenge about (x, y)."""
    return line((x - 17, y + 25), (x + 17, y - 25))


def dots(*places: tuple[float, float]) -> Strokes:
    return tuple(dot(x, y) for x, y in places)


def acute() -> Strokes:
    return (curve((60, ABOVE_TOP + 18, -126), (4, 734, -123), (-54, ABOVE_FOOT - 14, -136)),)


def double_acute() -> Strokes:
    return moved(acute(), -44) + moved(acute(), 44)


def shrunk(strokes: Strokes, factor: float, y: float) -> Strokes:
    """A tehta for above, made smaller and set about the height y."""
    return moved(tuple(stroke.moved(0, -ABOVE_CENTRE).scaled(factor) for stroke in strokes), 0, y)


def right_curl() -> Strokes:
    return (
        curve(
            (-34, ABOVE_FOOT - 22, 128),
            (-74, 744, 84),
            (10, ABOVE_TOP + 30, 0),
            (88, 762, -95),
            (34, 704, 170),
        ),
    )


def left_curl() -> Strokes:
    return mirrored(right_curl(), 0)


def doubled(strokes: Strokes) -> Strokes:
    return moved(strokes, -88) + moved(strokes, 88)


def back_curl() -> Strokes:
    return (curve((64, ABOVE_TOP + 30, 160), (-58, 762, -97), (8, ABOVE_FOOT - 8, -8), (72, 712, 62)),)


def caron() -> Strokes:
    return (curve((-84, 800, -55), (0, 662, -62)), curve((0, 662, 58), (84, 806, 50)))


def circumflex() -> Strokes:
    return (curve((-84, 664, 50), (0, 802, 55)), curve((0, 802, -58), (84, 664, -50)))


def w_sign() -> Strokes:
    return (curve((-104, 704, 70), (-58, 768, -5), (14, 740, -12), (82, 746, 15), (108, 728, -80), (88, 654, -120)),)


ABOVE_CENTRE = BAND_HEIGHTS[Band.ABOVE]
TEHTAR_ABOVE = {
    "threedots": dots((-60, ABOVE_FOOT), (60, ABOVE_FOOT), (0, ABOVE_TOP - 15)),
    "threedotsinverted": dots((-60, ABOVE_TOP - 15), (60, ABOVE_TOP - 15), (0, ABOVE_FOOT)),
    "dot": dots((0, ABOVE_CENTRE - 20)),
    "twodots": dots((-58, ABOVE_CENTRE - 20), (58, ABOVE_CENTRE - 20)),
    "acute": acute(),
    "rightcurl": right_curl(),
    "leftcurl": left_curl(),
    "backcurl": back_curl(),
    "caron": caron(),
    "circumflex": circumflex(),
    "wsign": w_sign(),
}


def lowered(strokes: Strokes) -> Strokes:
    """A tehta that is drawn for above, below the letter."""
    return moved(strokes, 0, BELOW_TOP - ABOVE_TOP)


def ring() -> Strokes:
    left = curve((0, BELOW_TOP + 8, 180), (-58, BELOW_TOP - 54, -90), (0, BELOW_TOP - 116, 0))
    return (left, left.turned(0, BELOW_TOP - 54))


TEHTAR_BELOW = {
    "dot": dots((0, BELOW_TOP - 14)),
    "twodots": dots((-58, BELOW_TOP - 14), (58, BELOW_TOP - 14)),
    "threedots": dots((-60, BELOW_TOP - 115), (60, BELOW_TOP - 115), (0, BELOW_TOP)),
    "acute": lowered(acute()),
    "doubleacute": shrunk(double_acute(), 0.84, BELOW_TOP - 60),
    "rightcurl": lowered(right_curl()),
    "leftcurl": lowered(left_curl()),
    "ring": ring(),
    "stroke": (curve((0, BELOW_TOP + 6, -90), (-4, BELOW_TOP - 120, -94)),),
}

# First codes of the four places (wide, medium, stem, narrow), in this order.
CODES_ABOVE = {
    "threedots": "#EDC",
    "acute": "$RFV",
    "dot": "%TGB",
    "leftcurl": "&UJM",
    "rightcurl": "^YHN",
    "threedotsinverted": "ª\u00ad¯µ",
    "twodots": "ÔÕÖ×",
    "caron": "ØÙÚÛ",
    "circumflex": "ÜÝÞß",
    "backcurl": "àáâã",
    "wsign": "èéêë",
}
CODES_BELOW = {
    "dot": "ÈÉÊË",
    "twodots": "ÌÍÎÏ",
    "threedots": "ÐÑÒÓ",
    "acute": "‰Š‹Ÿ",
    "doubleacute": "ƒ„…†",
    "leftcurl": "‘’“”",
    "rightcurl": "äåæç",
    "ring": "˜™¨©",
    "stroke": "üýþÿ",
}
# Codes that repeat a mark, with the code of the one repeated.
DUPLICATES = {"(": "È", "O": "É", ">": "Ó", "€": "\u00ad"}


def bar(length: float, y: float, x: float = 0.0) -> Strokes:
    half = length / 2
    return (line((x - half, y), (x + half, y)),)


def tilde(length: float, y: float, x: float = 0.0) -> Strokes:
    half = length / 2
    return (
        curve((x - half, y - 16, 50), (x - half / 2, y + 16, 0), (x + half / 2, y - 16, 0), (x + half, y + 16, 50)),
    )


# Codes of bars and tildes: straight wide, straight single, curly wide, curly single.
BARS = (
    (Band.BAR_ABOVE, "{[Pp", BAR_LENGTH),
    (Band.BAR_BELOW, "\"':;", BAR_LENGTH),
    (Band.BAR_HIGH, "ìî)0", LONG_BAR_LENGTH),
    (Band.BAR_FAR, "íï?/", LONG_BAR_LENGTH),
)


def code_of(character: str) -> int:
    return character.encode("cp1252")[0]


def placed_tehtar() -> dict[int, Mark]:
    marks = {}
    for band, codes, shapes, offsets in (
        (Band.ABOVE, CODES_ABOVE, TEHTAR_ABOVE, ABOVE),
        (Band.BELOW, CODES_BELOW, TEHTAR_BELOW, BELOW),
    ):
        for name, keys in codes.items():
            for key, place in zip(keys, Place):
                x = -offsets[place]
                title = f"{name}{band.value}.{place.value}"
                marks[code_of(key)] = Mark(title, moved(shapes[name], x), 0, x, band, pen=pen_of(name))
    for copy, original in DUPLICATES.items():
        twin = marks[code_of(original)]
        marks[code_of(copy)] = replace(twin, name=twin.name + ".copy")
    return marks


def bars() -> dict[int, Mark]:
    marks = {}
    for band, keys, length in BARS:
        shapes = ((bar, WIDE), (bar, MEDIUM), (tilde, WIDE), (tilde, MEDIUM))
        for key, (shape, place) in zip(keys, shapes):
            # Under doubled bows as over them: the bar is too long for any other place than the middle.
            x = -ABOVE[place]
            title = f"{shape.__name__}{band.value[4:]}.{place.value}"
            strokes = shape(length[place], BAND_HEIGHTS[band], x)
            marks[code_of(key)] = Mark(title, strokes, 0, x, band)
    return marks


def inside_lambe() -> dict[int, Mark]:
    y = BAND_HEIGHTS[Band.INSIDE]
    table = {
        "L": ("dot", dots((0, y))),
        "´": ("twodots", dots((-58, y), (58, y))),
        "¸": ("bar", bar(180, y)),
        "°": ("tilde", tilde(190, y)),
        "‚": ("doubleacute", shrunk(double_acute(), 0.8, y)),
    }
    return {
        code_of(key): Mark(f"{name}inside", moved(strokes, -INSIDE), 0, -INSIDE, Band.INSIDE, pen=pen_of(name))
        for key, (name, strokes) in table.items()
    }


def hooks() -> dict[int, Sign]:
    """The s-hooks. Left-hand ones hang under a bow; right-hand ones prolong one and have an advance."""
    left = (curve((0, BASE, -150), (-62, -52, -118), (-34, -132, -10), (36, -92, 55)),)
    foot = (-280, BASE, 0)
    bowl = (-250, -222, 4)

    def loop(start: tuple[float, ...], rise: float) -> Strokes:
        """A flourish that rises to the right, turns back and comes down to the left."""
        x, y = 10, rise
        return (
            curve(
                start,
                (x - 60, y + BASE + 8, 16),
                (x + 160, y + 196, 74),
                (x + 116, y + 334, 168),
                (x + 44, y + 236, -94),
                (x + 20, y - 60, -104),
                (x - 110, y - 208, -168),
                (x - 190, y - 178, 128),
            ),
        )

    tables = {
        "|": Mark("hookleft", moved(left, -315), 0, -315),
        "}": Mark("hookleft.narrow", moved(left, -150), 0, -150),
        "+": Sign(
            "hookright",
            (curve(foot, (-60, BASE, -4), (66, -76, -95), (-16, -176, 180), (-76, -138, 110)),),
            120,
        ),
        "_": Sign(
            "hookright.lambe",
            (curve(bowl, (-90, -172, 26), (16, -134, -8), (94, -212, -95), (20, -296, 180), (-34, -262, 112)),),
            140,
        ),
        "¡": Sign(
            "hookright.lifted",
            (curve((-126, 214, 0), (10, 206, -20), (106, 70, -92), (40, -40, 180), (-10, -8, 112)),),
            150,
        ),
        "¢": Sign(
            "hookright.raised",
            (curve((-118, TOP, 0), (10, TOP - 10, -18), (96, TOP - 124, -94), (26, TOP - 222, 180), (-22, TOP - 190, 112)),),
            150,
        ),
        "£": Sign("hookright.looped", loop(foot, 0), 220),
        "¥": Sign("hookright.lambelooped", loop(bowl, -140), 230),
        "Å": Sign("hookright.upward", (curve(foot, (-60, BASE, -2), (64, 70, 56), (90, 160, 88)),), 150),
        "Æ": Sign(
            "hookright.raisedupward",
            (curve((-118, TOP, 0), (-10, TOP - 2, 8), (72, TOP + 74, 64), (86, TOP + 140, 86)),),
            150,
        ),
        "Ç": Sign(
            "hookright.downward",
            (curve(foot, (-60, BASE, -4), (66, -80, -88), (64, -190, -95), (124, -222, 30)),),
            160,
        ),
    }
    return {code_of(key): sign for key, sign in tables.items()}


MARKS = placed_tehtar() | bars() | inside_lambe()
HOOKS = hooks()
