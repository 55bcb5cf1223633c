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


@dataclass(frozen=True)
class Letter(Sign):
    """A letter or digit, with the places of its marks.

    room is where the top of the marks below comes to stand (its middle and height) on letters whose
    own shape is in the way of the usual place.
    """

    above: Place = Place.MEDIUM
    below: Place = Place.MEDIUM
    room: tuple[float, float] | None = None


@dataclass(frozen=True)
class Mark(Sign):
    """A mark without advance, drawn back over the letter before it.

    middle is the x of its axis (negative), top the height that takes the place of Letter.room, for
    marks below; hooks belong to the bow and move with nothing.
    """

    middle: float = 0.0
    top: float | None = None
