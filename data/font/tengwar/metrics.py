"""The measures of the hand, in thousandths of the em, and the styles that are written with it."""

from __future__ import annotations

import cmath
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
    """A broad nib: an oblong with rounded corners held at a steady angle (degrees)."""

    width: float
    thickness: float
    angle: float

    # How square the nib is: the length of the handles of its four curves, 0.55 for an ellipse and
    # 1 for a rectangle. Rounded corners keep the inner edges of bends free of kinks.
    SQUARENESS = 0.76

    def nib(self, size: float = 1.0) -> list[tuple[complex, complex, complex]]:
        """The outline as four curves, clockwise: two control points and an end each."""
        half_width, half_thickness = self.width * size / 2, self.thickness * size / 2
        turn = cmath.rect(1, math.radians(self.angle))
        corners = []
        for x, y in ((1, -1), (-1, -1), (-1, 1), (1, 1)):
            ends = [complex(x * half_width, 0), complex(0, y * half_thickness)]
            if x * y > 0:
                ends.reverse()
            corner = complex(x * half_width, y * half_thickness)
            controls = [end + (corner - end) * self.SQUARENESS for end in ends]
            corners.append(tuple(turn * point for point in (*controls, ends[1])))
        return corners

    @property
    def rise(self) -> float:
        """How far the ink reaches above and below the middle of the pen."""
        steps = [i / 32 for i in range(33)]
        start = self.nib()[-1][2]
        highest = 0.0
        for leaving, arriving, end in self.nib():
            for t in steps:
                u = 1 - t
                point = u**3 * start + 3 * u * u * t * leaving + 3 * u * t * t * arriving + t**3 * end
                highest = max(highest, point.imag)
            start = end
        return highest


REGULAR_PEN = Pen(width=84, thickness=25, angle=35)
BOLD_PEN = Pen(width=126, thickness=36, angle=35)

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
    # The pen of the marks as a part of that of the letters: they must keep clear of each other.
    mark_pen: float = 1.0

    @property
    def advance_scale(self) -> float:
        return self.skeleton.xx


def fitted(pen: Pen, stretch: float, slant: float) -> Affine:
    """The map of the skeletons for another pen: the x-height of the ink stays, the width grows.

    The slant (degrees) leans everything about the baseline, marks and letters alike.
    """
    squeeze = (X_HEIGHT - 2 * pen.rise) / (TOP - BASE)
    lean = math.tan(math.radians(slant))
    return Affine(xx=stretch, xy=lean * squeeze, yy=squeeze, dy=pen.rise - BASE * squeeze)


ITALIC_SLANT = 11
BOLD_STRETCH = 1.06
BOLD_MARK_PEN = 0.82

STYLES = (
    Style("Regular", REGULAR_PEN, Affine()),
    Style("Bold", BOLD_PEN, fitted(BOLD_PEN, BOLD_STRETCH, 0), 0, 700, BOLD_MARK_PEN),
    Style("Italic", REGULAR_PEN, fitted(REGULAR_PEN, 1, ITALIC_SLANT), -ITALIC_SLANT),
    Style("Bold Italic", BOLD_PEN, fitted(BOLD_PEN, BOLD_STRETCH, ITALIC_SLANT), -ITALIC_SLANT, 700, BOLD_MARK_PEN),
)
