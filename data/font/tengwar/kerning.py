"""Pairs of letters that stand too far apart or too close by their advances alone."""

from __future__ import annotations

from collections.abc import Iterator

from .codes import code_of

# Letters by what their sides look like.
RIGHT_BOWS = "123456!@"
LEFT_BOWS = "asdfghAS.]8k*"
LEFT_CLOSED = "zxcvbnZX"
FOOT_AT_RIGHT = "wrtW"
STEM_AT_LEFT = "12qw5t6y"
LEANING_RIGHT = "8k*K"
RAISED_AT_LEFT = "3e4r!Q@W½9"
OPEN_UNDER_RIGHT = "7u"
OPEN_OVER_RIGHT = "9l"

# What is added between each of the first and each of the second, in thousandths of the em.
RULES = (
    # Two bows bulge towards each other.
    (RIGHT_BOWS, LEFT_BOWS, -18),
    # A foot stroke runs towards a stem.
    (FOOT_AT_RIGHT, STEM_AT_LEFT, 18),
    # The neck of silme leans over what follows.
    (LEANING_RIGHT, RAISED_AT_LEFT, 44),
    (OPEN_UNDER_RIGHT, LEFT_BOWS, -24),
    (OPEN_UNDER_RIGHT, OPEN_UNDER_RIGHT, -12),
    (OPEN_OVER_RIGHT, LEFT_BOWS, -16),
    (OPEN_OVER_RIGHT, LEFT_CLOSED, -10),
    ("j", LEFT_BOWS, -22),
)


def pairs() -> Iterator[tuple[int, int, float]]:
    """Codes of the left and right letter, and what is added between them."""
    for lefts, rights, distance in RULES:
        for left in lefts:
            for right in rights:
                yield code_of(left), code_of(right), distance
