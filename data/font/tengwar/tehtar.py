"""The tehtar above, below and inside letters.

Each is drawn once about x = 0 and set in the places that its codes have.
"""

from __future__ import annotations

from dataclasses import dataclass, replace

from .codes import code_of
from .geometry import Stroke, curve, line
from .parts import mirrored, moved
from .places import BACK_ABOVE, BACK_BELOW, BACK_INSIDE, HEIGHTS
from .sign import ABOVE, BELOW, INSIDE, Band, Mark, Place, Strokes

# The heights between which the pen's middle moves for marks above, and the top of those below.
FOOT, TOP = 674, 800
CENTRE = HEIGHTS[ABOVE]
BELOW_TOP = HEIGHTS[BELOW]
# Dots and single strokes are written with the pen of the letters, what bends with a smaller one.
FINE = 0.72


@dataclass(frozen=True)
class Tehta:
    strokes: Strokes
    pen: float = 1.0

    def moved(self, dx: float, dy: float = 0.0) -> Tehta:
        return replace(self, strokes=moved(self.strokes, dx, dy))

    def scaled_about(self, factor: float, y: float) -> Tehta:
        """A tehta for above, made smaller and set about the height y."""
        strokes = tuple(stroke.moved(0, -CENTRE).scaled(factor).moved(0, y) for stroke in self.strokes)
        return replace(self, strokes=strokes)

    def lowered(self) -> Tehta:
        """A tehta for above, below the letter."""
        return self.moved(0, BELOW_TOP - TOP)

    def doubled(self, distance: float) -> Tehta:
        half = distance / 2
        return replace(self, strokes=moved(self.strokes, -half) + moved(self.strokes, half))


def dot(x: float, y: float) -> Stroke:
    """A short pull of the pen across its edge: a lozenge about (x, y)."""
    return line((x - 17, y + 25), (x + 17, y - 25))


def dots(*places: tuple[float, float]) -> Tehta:
    return Tehta(tuple(dot(x, y) for x, y in places))


def fine(*strokes: Stroke) -> Tehta:
    return Tehta(strokes, FINE)


ACUTE = curve((60, TOP + 18, -126), (4, 734, -123), (-54, FOOT - 14, -136))
DOUBLE_ACUTE = fine(ACUTE).doubled(88)
RIGHT_CURL = fine(curve((-32, FOOT - 26, 128), (-62, 746, 84), (8, TOP + 26, 0), (74, 764, -95), (26, 706, 170)))
LEFT_CURL = fine(*mirrored(RIGHT_CURL.strokes, 0))
RING_HALF = curve((0, BELOW_TOP + 8, 180), (-58, BELOW_TOP - 54, -90), (0, BELOW_TOP - 116, 0))

SHAPES_ABOVE = {
    "threedots": dots((-67, FOOT + 6), (67, FOOT + 6), (0, TOP)),
    "threedotsinverted": dots((-67, TOP), (67, TOP), (0, FOOT + 6)),
    "dot": dots((0, CENTRE - 20)),
    "twodots": dots((-62, CENTRE - 20), (62, CENTRE - 20)),
    "acute": Tehta((ACUTE,)),
    "rightcurl": RIGHT_CURL,
    "leftcurl": LEFT_CURL,
    "backcurl": fine(curve((64, TOP + 30, 160), (-58, 762, -97), (8, FOOT - 8, -8), (72, 712, 62))),
    "caron": fine(curve((-84, 800, -55), (0, 662, -62)), curve((0, 662, 58), (84, 806, 50))),
    "circumflex": fine(curve((-84, 664, 50), (0, 802, 55)), curve((0, 802, -58), (84, 664, -50))),
    "wsign": fine(
        curve((-104, 704, 70), (-58, 768, -5), (14, 740, -12), (82, 746, 15), (108, 728, -80), (88, 654, -120))
    ),
}
SHAPES_BELOW = {
    "dot": dots((0, BELOW_TOP - 14)),
    "twodots": dots((-62, BELOW_TOP - 14), (62, BELOW_TOP - 14)),
    "threedots": dots((-67, BELOW_TOP - 122), (67, BELOW_TOP - 122), (0, BELOW_TOP - 12)),
    "acute": Tehta((ACUTE,)).lowered(),
    "doubleacute": DOUBLE_ACUTE.scaled_about(0.84, BELOW_TOP - 60),
    "rightcurl": RIGHT_CURL.lowered(),
    "leftcurl": LEFT_CURL.lowered(),
    "ring": fine(RING_HALF, RING_HALF.turned(0, BELOW_TOP - 54)),
    "stroke": Tehta((curve((0, BELOW_TOP + 6, -90), (-4, BELOW_TOP - 120, -94)),)),
}
# Those that have a character of their own only in the private-use arrangement.
SHAPES_DOUBLED = {
    "doubleacute": DOUBLE_ACUTE,
    "doublerightcurl": RIGHT_CURL.doubled(176),
    "doubleleftcurl": LEFT_CURL.doubled(176),
}

# Characters of the codes for the places wide, medium, stem and narrow.
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
# Codes that repeat a mark, with the code of the one repeated. The soft hyphen is there twice because
# text engines hide it.
COPIES = {"(": "È", "O": "É", ">": "Ó", "€": "\u00ad"}


def mark(title: str, tehta: Tehta, x: float, band: Band) -> Mark:
    return Mark(title, moved(tehta.strokes, x), 0, x, band, pen=tehta.pen)


def placed() -> dict[int, Mark]:
    """The tehtar above and below, under the codes of their four places."""
    marks = {}
    for band, codes, shapes, back in (
        (ABOVE, CODES_ABOVE, SHAPES_ABOVE, BACK_ABOVE),
        (BELOW, CODES_BELOW, SHAPES_BELOW, BACK_BELOW),
    ):
        for name, characters in codes.items():
            for character, place in zip(characters, Place):
                title = f"{name}{band.value}.{place.value}"
                marks[code_of(character)] = mark(title, shapes[name], -back[place], band)
    for copy, original in COPIES.items():
        twin = marks[code_of(original)]
        marks[code_of(copy)] = replace(twin, name=twin.name + ".copy")
    return marks


def inside_lambe() -> dict[int, Mark]:
    y = HEIGHTS[INSIDE]
    table = {
        "L": ("dotinside", dots((0, y))),
        "´": ("twodotsinside", dots((-58, y), (58, y))),
        "‚": ("doubleacuteinside", DOUBLE_ACUTE.scaled_about(0.8, y)),
    }
    return {code_of(key): mark(title, tehta, -BACK_INSIDE, INSIDE) for key, (title, tehta) in table.items()}


TEHTAR = placed() | inside_lambe()
