"""All signs of the font under their Unicode characters."""

from __future__ import annotations

from dataclasses import dataclass

from . import private_use, tehtar
from .digits import DIGITS
from .letters import LETTERS
from .parts import moved
from .punctuation import PUNCTUATION
from .rare import RARE
from .sign import Letter, Mark, Place, Sign

# What carries marks.
LETTERS_AND_DIGITS: dict[int, Letter] = LETTERS | RARE | DIGITS
# Every code of the eight-bit table that has a sign.
SIGNS: dict[int, Sign] = LETTERS_AND_DIGITS | tehtar.MARKS | tehtar.HOOKS | PUNCTUATION

# The axis of the marks that find their place by anchors, where nothing tells them another.
FLOATING_MIDDLE = -tehtar.ABOVE[Place.MEDIUM]


@dataclass(frozen=True)
class Floating:
    """A mark that stands over or under its letter wherever the letter's anchor is."""

    sign: Mark
    below: bool


def unicode_of(code: int) -> int:
    return ord(bytes([code]).decode("cp1252"))


def code_of(character: str) -> int:
    return character.encode("cp1252")[0]


def private_codes() -> dict[int, list[int]]:
    """The private-use characters of the codes that have any."""
    result: dict[int, list[int]] = {}
    for private, key in private_use.CODES.items():
        result.setdefault(code_of(key), []).append(private)
    return result


def floating_marks() -> dict[int, Floating]:
    above = tehtar.TEHTAR_ABOVE | {
        "doubleacute": tehtar.double_acute(),
        "doublerightcurl": tehtar.doubled(tehtar.right_curl()),
        "doubleleftcurl": tehtar.doubled(tehtar.left_curl()),
        "bar": tehtar.bar(tehtar.BAR_LENGTH[Place.MEDIUM], tehtar.BAR_ABOVE),
    }
    below = tehtar.TEHTAR_BELOW | {"bar": tehtar.bar(tehtar.BAR_LENGTH[Place.MEDIUM], tehtar.BAR_BELOW)}
    marks = {}
    for where, table, shapes in (("above", private_use.MARKS_ABOVE, above), ("below", private_use.MARKS_BELOW, below)):
        for private, name in table.items():
            strokes = moved(shapes[name], FLOATING_MIDDLE)
            sign = Mark(f"{name}{where}.floating", strokes, 0, FLOATING_MIDDLE, tehtar.BELOW_TOP, pen=tehtar.pen_of(name))
            marks[private] = Floating(sign, where == "below")
    return marks
