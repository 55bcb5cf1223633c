"""The numerals 0 to 11, in threes that add bows: 1 to 3, 4 to 6, 7 to 9."""

from __future__ import annotations

from .geometry import curve, line
from .letters import esse, silme
from .metrics import BASE, MIDDLE, RAISED, TOP
from .parts import BOW, INNER_BOW, closed_bow, flick, foot_stroke, mirrored, moved, stem, stem_lean
from .sign import Band, Letter, Place, Strokes

WIDE, MEDIUM, STEM, NARROW = Place.WIDE, Place.MEDIUM, Place.STEM, Place.NARROW
ABOVE, BELOW, BAR_ABOVE, BAR_BELOW = Band.ABOVE, Band.BELOW, Band.BAR_ABOVE, Band.BAR_BELOW

# From one bow under a cross stroke to the next.
STEP = 310
HOOK_DEPTH = -300


def hanging_bow(x: float) -> Strokes:
    """A bow like a c that hangs from a cross stroke, its left side at x."""
    return (curve((x + 150, TOP - 4, -162), (x, MIDDLE - 6, -90), (x + 158, BASE, 0), (x + 290, 118, 62)),)


def cross_stroke(start: float, end: float) -> Strokes:
    return (curve((start, TOP - 30, 40), (start + 80, TOP - 2, 4), ((start + end) / 2 + 40, TOP - 6, 0), (end, TOP + 4, 12)),)


def bows_hanging(count: int) -> Letter:
    strokes = cross_stroke(44, 360 + STEP * (count - 1) + 66)
    for i in range(count):
        strokes += moved(hanging_bow(96), STEP * i)
    return strokes


def hooked_stem(direction: int) -> Strokes:
    """A stem at x = 0 from the raised height to a hook below the baseline, to the right (1) or left."""
    lean = stem_lean(RAISED)
    if direction > 0:
        path = curve((lean, RAISED, -92), (0, MIDDLE, -90), (0, -190, -90), (104, HOOK_DEPTH, 0), (208, -228, 68))
    else:
        path = curve((lean, RAISED, -92), (0, MIDDLE, -90), (-2, -160, -92), (-106, HOOK_DEPTH, 180), (-190, -244, 110))
    return flick(lean, RAISED) + (path,)


def stem_with_bows(count: int) -> Strokes:
    end = 130 + 60 + STEP * count + 30
    cross = (curve((130, TOP - 6, 0), ((130 + end) / 2, TOP - 6, 0), (end, TOP + 4, 12)),)
    strokes = moved(hooked_stem(1), 130) + (cross if count else ())
    for i in range(count):
        strokes += moved(hanging_bow(216), STEP * i)
    return strokes


def hook_with_bows(count: int) -> Strokes:
    strokes = hooked_stem(-1)
    if count == 1:
        strokes += closed_bow(BOW) + foot_stroke(BOW + 30)
    elif count == 2:
        strokes += closed_bow(INNER_BOW) + moved(closed_bow(BOW), INNER_BOW) + foot_stroke(INNER_BOW + BOW + 30)
    return strokes


def ten(strokes: Strokes) -> Strokes:
    return mirrored(strokes, 300)


def table() -> tuple[Letter, ...]:
    zero = (curve((88, 330, 62), (244, TOP, 0), (448, MIDDLE, -90), (240, BASE, 180), (66, 112, 128)),)
    under_neck = {ABOVE: (530,), BAR_ABOVE: (108,)}
    return (
        Letter("zero", zero, 540, MEDIUM, MEDIUM),
        Letter("one", bows_hanging(1), 500, MEDIUM, MEDIUM),
        Letter("two", bows_hanging(2), 810, WIDE, WIDE),
        Letter("three", bows_hanging(3), 1120, WIDE, WIDE),
        Letter("four", stem_with_bows(0), 480, STEM, MEDIUM, {ABOVE: (356,), BELOW: (230, -428), BAR_ABOVE: (330,), BAR_BELOW: (330,)}),
        Letter("five", stem_with_bows(1), 620, MEDIUM, WIDE, {ABOVE: (372,), BELOW: (506,), BAR_ABOVE: (362,), BAR_BELOW: (390,)}),
        Letter("six", stem_with_bows(2), 930, WIDE, WIDE, {BELOW: (512,), BAR_ABOVE: (496,), BAR_BELOW: (504,)}),
        Letter("seven", moved(hooked_stem(-1), 374), 494, MEDIUM, MEDIUM, {ABOVE: (122,), BELOW: (268, -428), BAR_ABOVE: (160,), BAR_BELOW: (160,)}),
        Letter("eight", moved(hook_with_bows(1), 210), 700, STEM, MEDIUM, {ABOVE: (424,), BAR_ABOVE: (416,), BAR_BELOW: (416,)}),
        Letter("nine", moved(hook_with_bows(2), 210), 1020, WIDE, WIDE),
        Letter("ten", ten(silme()), 600, MEDIUM, MEDIUM, under_neck),
        Letter("eleven", ten(esse()), 600, MEDIUM, MEDIUM, under_neck | {BELOW: (310, -300), BAR_BELOW: (310, -280)}),
    )


DIGITS = {0xF0 + value: digit for value, digit in enumerate(table())}
