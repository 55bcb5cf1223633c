"""Where marks stand: how far back from the edge of their letter, and how high."""

from __future__ import annotations

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
    Band,
    Letter,
)

# From the right edge of a letter back to the axis of the mark.
BACK_ABOVE = {WIDE: 465, MEDIUM: 315, STEM: 255, NARROW: 150}
BACK_BELOW = {WIDE: 445, MEDIUM: 315, STEM: 265, NARROW: 150}
BACK_INSIDE = 380

# Heights of the middle of the marks; for those below, of their tops.
HEIGHTS = {
    ABOVE: 730,
    BELOW: -235,
    BAR_ABOVE: 553,
    BAR_BELOW: -117,
    BAR_HIGH: 894,
    BAR_FAR: -512,
    INSIDE: 90,
}


def anchor(letter: Letter, band: Band) -> tuple[float, float]:
    """Where the middle of the marks of a band stands on a letter."""
    if band is BELOW:
        back = BACK_BELOW[letter.below]
    elif band is ABOVE:
        back = BACK_ABOVE[letter.above]
    elif band is INSIDE:
        back = BACK_INSIDE
    else:
        back = BACK_ABOVE[WIDE if letter.above is letter.below is WIDE else MEDIUM]
    x, *y = letter.exceptions.get(band, (letter.advance - back,))
    return x, *(y or [HEIGHTS[band]])
