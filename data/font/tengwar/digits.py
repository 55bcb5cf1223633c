"""The numerals 0 to 11, in threes that add bows: 1 to 3, 4 to 6, 7 to 9."""

from __future__ import annotations

from .geometry import curve
from .letters import esse, silme
from .metrics import BASE, MIDDLE, RAISED, TOP
from .parts import BOW, INNER_BOW, closed_bow, flick, foot_stroke, mirrored, moved, stem_lean
from .sign import (
    ABOVE,
    BAR_ABOVE,
    BAR_BELOW,
    BAR_FAR,
    BAR_HIGH,
    BELOW,
    MEDIUM,
    STEM,
    WIDE,
    Exceptions,
    Letter,
    Strokes,
)

# From one bow under a cross stroke to the next, and how deep the hooks of the stems hang.
STEP = 310
HOOK_DEPTH = -300


def zero() -> Strokes:
    return (curve((88, 330, 62), (244, TOP, 0), (448, MIDDLE, -90), (240, BASE, 180), (66, 112, 128)),)


def hanging_bows(x: float, count: int) -> Strokes:
    """Bows like a c that hang from a cross stroke, the left side of the first at x."""
    bow = (curve((x + 150, TOP - 4, -162), (x, MIDDLE - 6, -90), (x + 158, BASE, 0), (x + 290, 118, 62)),)
    return sum((moved(bow, STEP * i) for i in range(count)), ())


def bows_alone(count: int) -> Strokes:
    end = 116 + STEP * count
    cross = curve((44, TOP - 30, 40), (124, TOP - 2, 4), (end / 2 + 62, TOP - 6, 0), (end, TOP + 4, 12))
    return (cross,) + hanging_bows(96, count)


def stem_hooked_right(x: float) -> Strokes:
    """A stem from the raised height to a hook below the baseline."""
    lean = stem_lean(RAISED)
    path = curve((lean, RAISED, -92), (0, MIDDLE, -90), (0, -190, -90), (104, HOOK_DEPTH, 0), (208, -228, 68))
    return moved(flick(lean, RAISED) + (path,), x)


def stem_hooked_left(x: float) -> Strokes:
    lean = stem_lean(RAISED)
    knots = (lean, RAISED, -92), (0, MIDDLE, -90), (-2, -160, -92), (-106, HOOK_DEPTH, 180), (-190, -244, 110)
    return moved(flick(lean, RAISED) + (curve(*knots),), x)


def stem_with_bows(count: int) -> Strokes:
    """The stem of 4 and bows under a cross stroke at its right."""
    start, end = 130, 220 + STEP * count
    cross = curve((start, TOP - 6, 0), ((start + end) / 2, TOP - 6, 0), (end, TOP + 4, 12))
    return stem_hooked_right(start) + (cross,) + hanging_bows(216, count)


def hook_with_bows(count: int) -> Strokes:
    """The stem of 7 and closed bows at its right."""
    if count == 1:
        bows = closed_bow(BOW) + foot_stroke(BOW + 30)
    else:
        bows = closed_bow(INNER_BOW) + moved(closed_bow(BOW), INNER_BOW) + foot_stroke(INNER_BOW + BOW + 30)
    return stem_hooked_left(210) + moved(bows, 210)


def over_middle(x: float) -> Exceptions:
    return {band: (x,) for band in (ABOVE, BELOW, BAR_ABOVE, BAR_BELOW, BAR_HIGH, BAR_FAR)}


def table() -> tuple[Letter, ...]:
    beside_four = {ABOVE: (356,), BELOW: (230, -424), BAR_ABOVE: (330,), BAR_BELOW: (330,)}
    beside_five = {ABOVE: (372,), BELOW: (506,), BAR_ABOVE: (362,), BAR_BELOW: (390,)}
    beside_six = {BELOW: (512,), BAR_ABOVE: (496,), BAR_BELOW: (504,)}
    beside_seven = {ABOVE: (122,), BELOW: (268, -424), BAR_ABOVE: (160,), BAR_BELOW: (160,)}
    beside_eight = {ABOVE: (424,), BAR_ABOVE: (416,), BAR_BELOW: (416,)}
    beside_neck = {ABOVE: (530,), BAR_ABOVE: (108,)}
    under_bowl = {BELOW: (310, -300), BAR_BELOW: (310, -280)}
    return (
        Letter("zero", zero(), 540, MEDIUM, MEDIUM),
        Letter("one", bows_alone(1), 500, MEDIUM, MEDIUM),
        Letter("two", bows_alone(2), 810, WIDE, WIDE, over_middle(390)),
        Letter("three", bows_alone(3), 1120, WIDE, WIDE, over_middle(545)),
        Letter("four", stem_hooked_right(130), 480, STEM, MEDIUM, beside_four),
        Letter("five", stem_with_bows(1), 620, MEDIUM, WIDE, beside_five),
        Letter("six", stem_with_bows(2), 930, WIDE, WIDE, beside_six),
        Letter("seven", stem_hooked_left(374), 494, MEDIUM, MEDIUM, beside_seven),
        Letter("eight", hook_with_bows(1), 700, STEM, MEDIUM, beside_eight),
        Letter("nine", hook_with_bows(2), 1020, WIDE, WIDE),
        Letter("ten", mirrored(silme(), 300), 600, MEDIUM, MEDIUM, beside_neck),
        Letter("eleven", mirrored(esse(), 300), 600, MEDIUM, MEDIUM, beside_neck | under_bowl),
    )


DIGITS = {0xF0 + value: digit for value, digit in enumerate(table())}
