"""What one sign of the font is, whichever table it stands in."""

from __future__ import annotations

import enum
from dataclasses import dataclass, field

from .geometry import Stroke

Strokes = tuple[Stroke, ...]


class Place(enum.Enum):
    """Where a mark stands over or under its letter: each mark exists once for each place."""

    WIDE = "wide"
    MEDIUM = "medium"
    STEM = "stem"
    NARROW = "narrow"


@dataclass(frozen=True)
class Sign:
    """Strokes of the pen on an advance that begins at x = 0.

    pen is the size of the pen as a part of that of the letters.
    """

    name: str
    strokes: Strokes
    advance: float
    pen: float = field(default=1.0, kw_only=True)


class Band(enum.Enum):
    """The heights at which marks stand."""

    ABOVE = "above"
    BELOW = "below"
    BAR_ABOVE = "bar above"
    BAR_BELOW = "bar below"
    BAR_HIGH = "bar high"
    BAR_FAR = "bar far"
    INSIDE = "inside"


@dataclass(frozen=True)
class Letter(Sign):
    """A letter or digit, with the places of its marks.

    exceptions says where the middle of the marks of a band comes to stand, if the shape of the
    letter is in the way of the usual place: x, and y where the height changes as well.
    """

    above: Place = Place.MEDIUM
    below: Place = Place.MEDIUM
    exceptions: dict[Band, tuple[float, ...]] = field(default_factory=dict)


@dataclass(frozen=True)
class Mark(Sign):
    """A mark without advance, drawn back over the letter before it; middle is the x of its axis.

    Hooks have no band: they prolong a bow and move with nothing.
    """

    middle: float = 0.0
    band: Band | None = None
