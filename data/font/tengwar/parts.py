"""What the letters are made of: stems, bows and the straight stroke that closes bows.

Stems stand at x = 0. Right-hand bows spring from a stem at x = 0 and reach to the right; the
left-hand ones are the same strokes turned by half a turn, which suits the pen as well.
"""

from __future__ import annotations

from .geometry import curve
from .metrics import BASE, HANGING, MIDDLE, RAISED, TOP
from .sign import Strokes

# How far a bow reaches from its stem, and from the bow before it that it touches.
BOW = 385
INNER_BOW = 325


def flick(x: float, y: float, length: float = 62) -> Strokes:
    """The short stroke from the left with which the pen begins a stem whose top is (x, y)."""
    return (curve((x - length, y - 26, 20), (x, y + 6, 35)),)


def stem(top: float, foot: float) -> Strokes:
    """A telco from top to foot, without a flick. Long ones bend a little, as the hand does."""
    lean = stem_lean(top)
    if foot == HANGING:
        return (curve((lean, top, -92), (0, MIDDLE, -90), (-4, -180, -91), (-34, foot, -118)),)
    return (curve((lean, top, -92), (0, MIDDLE, -90), (0, foot, -90)),)


def stem_lean(top: float) -> float:
    """How far the top of a stem stands to the right of its middle."""
    return 12 if top == RAISED else 0


def open_bow(width: float) -> Strokes:
    return (
        curve(
            (0, 262, 57),
            (0.55 * width, TOP, 0),
            (width, 0.53 * TOP, -91),
            (0.575 * width, BASE, 180),
            (0.44 * width, BASE + 34, 140),
        ),
    )


def closed_bow(width: float) -> Strokes:
    return (
        curve((0, 262, 57), (0.55 * width, TOP, 0), (width, 0.55 * TOP, -92), (0.72 * width, BASE + 10, -137)),
    )


def foot_stroke(width: float) -> Strokes:
    """The straight stroke along the baseline that closes right-hand bows."""
    return (curve((0, BASE + 2, 0), (0.7 * width, BASE, 0), (width, BASE + 14, 24)),)


def bows(count: int, closed: bool) -> Strokes:
    """One or two right-hand bows."""
    bow = closed_bow if closed else open_bow
    strokes = bow(BOW) if count == 1 else bow(INNER_BOW) + moved(bow(BOW), INNER_BOW)
    if closed:
        strokes += foot_stroke((count - 1) * INNER_BOW + BOW + 48)
    return strokes


def moved(strokes: Strokes, dx: float, dy: float = 0.0) -> Strokes:
    return tuple(stroke.moved(dx, dy) for stroke in strokes)


def turned(strokes: Strokes, x: float, y: float) -> Strokes:
    return tuple(stroke.turned(x, y) for stroke in strokes)


def mirrored(strokes: Strokes, x: float) -> Strokes:
    return tuple(stroke.mirrored(x) for stroke in strokes)
