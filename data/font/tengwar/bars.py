"""Bars and tildes above, below and inside letters: straight and curly forms of one mark."""

from __future__ import annotations

from .codes import code_of
from .geometry import curve, line
from .places import BACK_ABOVE, BACK_INSIDE, HEIGHTS
from .sign import BAR_ABOVE, BAR_BELOW, BAR_FAR, BAR_HIGH, INSIDE, MEDIUM, WIDE, Mark, Strokes

# Bars near the letter pass beside long stems on either side; those beyond the stems may be longer.
LENGTH = {WIDE: 480, MEDIUM: 184}
LONG_LENGTH = {WIDE: 600, MEDIUM: 290}
INSIDE_LENGTH = 184

# Characters of the codes: straight wide, straight single, curly wide, curly single.
CODES = (
    (BAR_ABOVE, "{[Pp", LENGTH),
    (BAR_BELOW, "\"':;", LENGTH),
    (BAR_HIGH, "ìî)0", LONG_LENGTH),
    (BAR_FAR, "íï?/", LONG_LENGTH),
)


def bar(length: float, y: float, x: float = 0.0) -> Strokes:
    half = length / 2
    return (line((x - half, y), (x + half, y)),)


def tilde(length: float, y: float, x: float = 0.0) -> Strokes:
    half = length / 2
    return (
        curve((x - half, y - 16, 50), (x - half / 2, y + 16, 0), (x + half / 2, y - 16, 0), (x + half, y + 16, 50)),
    )


def placed() -> dict[int, Mark]:
    marks = {}
    for band, characters, length in CODES:
        shapes = ((bar, WIDE), (bar, MEDIUM), (tilde, WIDE), (tilde, MEDIUM))
        for character, (shape, place) in zip(characters, shapes):
            # Below as above: a bar is too long for any other place than the middle of its letter.
            x = -BACK_ABOVE[place]
            title = f"{shape.__name__}{band.value.removeprefix('bar ')}.{place.value}"
            marks[code_of(character)] = Mark(title, shape(length[place], HEIGHTS[band], x), 0, x, band)
    return marks


def inside_lambe() -> dict[int, Mark]:
    marks = {}
    for character, shape in (("¸", bar), ("°", tilde)):
        strokes = shape(INSIDE_LENGTH, HEIGHTS[INSIDE], -BACK_INSIDE)
        marks[code_of(character)] = Mark(f"{shape.__name__}inside", strokes, 0, -BACK_INSIDE, INSIDE)
    return marks


BARS = placed() | inside_lambe()
