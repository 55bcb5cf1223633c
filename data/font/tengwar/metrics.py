"""The measures of the hand, in thousandths of the em, and the styles that are written with it."""

from __future__ import annotations

import math
from dataclasses import dataclass

from .geometry import Affine

EM = 1000
# Where the ink ends. The bows of all letters fill the height from the baseline to X_HEIGHT.
X_HEIGHT = 440
ASCENT = 960
DESCENT = 600


@dataclass(frozen=True)
class Pen:
    """A broad nib: a rectangle held at a steady angle (degrees from the horizontal)."""

    width: float
    thickness: float
    angle: float

    @property
    def rise(self) -> float:
        """How far the ink reaches above and below the middle of the pen."""
        angle = math.radians(self.angle)
        return (self.width * math.sin(angle) + self.thickness * math.cos(angle)) / 2


REGULAR_PEN = Pen(width=80, thickness=20, angle=35)
BOLD_PEN = Pen(width=122, thickness=30, angle=35)

# Where the middle of the regular pen runs; all skeletons are given for that pen.
TOP = X_HEIGHT - REGULAR_PEN.rise
BASE = REGULAR_PEN.rise
MIDDLE = X_HEIGHT / 2
RAISED = 780
HANGING = -400


@dataclass(frozen=True)
class Style:
    name: str
    pen: Pen
    skeleton: Affine
    italic_angle: float = 0.0
    weight: int = 400

    @property
    def advance_scale(self) -> float:
        return self.skeleton.xx


def _fitted(pen: Pen, stretch: float, slant: float) -> Affine:
    """The map of the skeletons for another pen: the x-height of the ink stays, the width grows.

    The slant (degrees) leans everything about the baseline, marks and letters alike.
    """
    squeeze = (X_HEIGHT - 2 * pen.rise) / (TOP - BASE)
    lean = math.tan(math.radians(slant))
    return Affine(xx=stretch, xy=lean * squeeze, yy=squeeze, dy=pen.rise - BASE * squeeze)


ITALIC_SLANT = 11
BOLD_STRETCH = 1.06

STYLES = (
    Style("Regular", REGULAR_PEN, Affine()),
    Style("Bold", BOLD_PEN, _fitted(BOLD_PEN, BOLD_STRETCH, 0), weight=700),
    Style("Italic", REGULAR_PEN, _fitted(REGULAR_PEN, 1, ITALIC_SLANT), -ITALIC_SLANT),
    Style("Bold Italic", BOLD_PEN, _fitted(BOLD_PEN, BOLD_STRETCH, ITALIC_SLANT), -ITALIC_SLANT, 700),
)
