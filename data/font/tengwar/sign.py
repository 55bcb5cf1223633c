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


class Band(enum.Enum):
    """The heights at which marks stand."""

    ABOVE = "above"
    BELOW = "below"
    BAR_ABOVE = "bar above"
    BAR_BELOW = "bar below"
    BAR_HIGH = "bar high"
    BAR_FAR = "bar far"
    INSIDE = "inside"


WIDE, MEDIUM, STEM, NARROW = Place
ABOVE, BELOW, BAR_ABOVE, BAR_BELOW, BAR_HIGH, BAR_FAR, INSIDE = Band

# Where the middle of the marks of a band comes to stand on a letter whose shape is in the way of the
# usual place: x, and y where the height changes as well.
Exceptions = dict[Band, tuple[float, ...]]


@dataclass(frozen=True)
class Sign:
    """Strokes of the pen on an advance that begins at x = 0.

    pen is the size of the pen as a part of that of the letters.
    """

    name: str
    strokes: Strokes
    advance: float
    pen: float = field(default=1.0, kw_only=True)


@dataclass(frozen=True)
class Letter(Sign):
    """A letter or digit, with the places of its marks."""

    above: Place = Place.MEDIUM
    below: Place = Place.MEDIUM
    exceptions: Exceptions = field(default_factory=dict)


@dataclass(frozen=True)
class Mark(Sign):
    """A mark without advance, drawn back over the letter before it; middle is the x of its axis.

    Hooks have no band: they prolong a bow and move with nothing.
    """

    middle: float = 0.0
    band: Band | None = None
