"""Strokes: the path that the middle of the pen follows, as smooth cubic curves.

A stroke is written down by the few points it runs through and, where that matters, the direction
it has there; the curve between them is John Hobby's ("Smooth, easy to compute interpolating
splines", 1986), which keeps bends even.
"""

from __future__ import annotations

import cmath
import math
from dataclasses import dataclass

Point = complex


@dataclass(frozen=True)
class Affine:
    """The map (x, y) -> (xx*x + xy*y + dx, yx*x + yy*y + dy)."""

    xx: float = 1.0
    xy: float = 0.0
    yx: float = 0.0
    yy: float = 1.0
    dx: float = 0.0
    dy: float = 0.0

    def __call__(self, point: Point) -> Point:
        return complex(
            self.xx * point.real + self.xy * point.imag + self.dx,
            self.yx * point.real + self.yy * point.imag + self.dy,
        )


@dataclass(frozen=True)
class Stroke:
    """An open path of cubic segments, each (start, control, control, end)."""

    segments: tuple[tuple[Point, Point, Point, Point], ...]

    def mapped(self, affine) -> Stroke:
        return Stroke(tuple(tuple(affine(p) for p in segment) for segment in self.segments))

    def moved(self, dx: float, dy: float = 0.0) -> Stroke:
        return self.mapped(lambda point: point + complex(dx, dy))

    def turned(self, x: float, y: float) -> Stroke:
        """Half a turn about (x, y): a pen stroke stays a true pen stroke under it."""
        return self.mapped(lambda point: complex(2 * x, 2 * y) - point)

    def mirrored(self, x: float) -> Stroke:
        """Left and right exchanged about the vertical at x."""
        return self.mapped(lambda point: complex(2 * x - point.real, point.imag))

    def scaled(self, factor: float) -> Stroke:
        return self.mapped(lambda point: point * factor)

    def __add__(self, other: Stroke) -> Stroke:
        """This stroke, then the other without lifting the pen."""
        return Stroke(self.segments + other.segments)


def line(*knots: tuple[float, float]) -> Stroke:
    """Straight segments through the points."""
    points = [complex(*knot) for knot in knots]
    return Stroke(tuple((a, a + (b - a) / 3, b - (b - a) / 3, b) for a, b in zip(points, points[1:])))


def curve(*knots: tuple[float, ...]) -> Stroke:
    """A smooth curve through knots (x, y) or (x, y, direction in degrees, 0 to the right)."""
    given = [i for i, knot in enumerate(knots) if len(knot) == 3]
    stops = sorted({0, len(knots) - 1, *given})
    segments = []
    for first, last in zip(stops, stops[1:]):
        segments += _run(knots[first : last + 1])
    return Stroke(tuple(segments))


def _run(knots) -> list[tuple[Point, Point, Point, Point]]:
    """The segments between two knots whose directions are given or free, all others free."""
    points = [complex(knot[0], knot[1]) for knot in knots]
    chords = [b - a for a, b in zip(points, points[1:])]
    turns = [cmath.phase(b / a) for a, b in zip(chords, chords[1:])]
    theta = _directions(knots, [abs(chord) for chord in chords], chords, turns)
    segments = []
    for i, chord in enumerate(chords):
        leaving = theta[i]
        arriving = -theta[i + 1] - (turns[i] if i < len(turns) else 0.0)
        segments.append(_segment(points[i], points[i + 1], chord, leaving, arriving))
    return segments


def _directions(knots, lengths, chords, turns) -> list[float]:
    """The angle between the path and the chord that leaves each knot (arrives, for the last)."""
    n = len(chords)

    def given(knot, chord):
        return cmath.phase(cmath.rect(1.0, math.radians(knot[2])) / chord)

    # Rows of a tridiagonal system: below, diagonal, above, right-hand side.
    rows = []
    if len(knots[0]) == 3:
        rows.append([0.0, 1.0, 0.0, given(knots[0], chords[0])])
    else:
        rows.append([0.0, 1.0, 1.0, -(turns[0] if turns else 0.0)])
    for i in range(1, n):
        before, after = 1.0 / lengths[i - 1], 1.0 / lengths[i]
        following = turns[i] if i < n - 1 else 0.0
        rows.append([before, 2 * (before + after), after, -2 * turns[i - 1] * before - following * after])
    if len(knots[-1]) == 3:
        rows.append([0.0, 1.0, 0.0, given(knots[-1], chords[-1])])
    else:
        rows.append([1.0, 1.0, 0.0, 0.0])
    return _solve(rows)


def _solve(rows) -> list[float]:
    for i in range(1, len(rows)):
        factor = rows[i][0] / rows[i - 1][1]
        rows[i][1] -= factor * rows[i - 1][2]
        rows[i][3] -= factor * rows[i - 1][3]
        if abs(rows[i][1]) < 1e-9:  # two free ends: a straight line
            rows[i][1], rows[i][3] = 1.0, 0.0
    result = [0.0] * len(rows)
    for i in reversed(range(len(rows))):
        above = rows[i][2] * result[i + 1] if i + 1 < len(rows) else 0.0
        result[i] = (rows[i][3] - above) / rows[i][1]
    return result


def _segment(start, end, chord, leaving, arriving):
    a = math.sqrt(2) * (math.sin(leaving) - math.sin(arriving) / 16)
    a *= (math.sin(arriving) - math.sin(leaving) / 16) * (math.cos(leaving) - math.cos(arriving))
    c = (3 - math.sqrt(5)) / 2
    reach_out = (2 + a) / (1 + (1 - c) * math.cos(leaving) + c * math.cos(arriving)) / 3
    reach_in = (2 - a) / (1 + (1 - c) * math.cos(arriving) + c * math.cos(leaving)) / 3
    return (
        start,
        start + cmath.rect(min(reach_out, 2.0), leaving) * chord,
        end - cmath.rect(min(reach_in, 2.0), -arriving) * chord,
        end,
    )
