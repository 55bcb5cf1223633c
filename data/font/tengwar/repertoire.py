"""All signs of the font under their Unicode characters."""

from __future__ import annotations

from . import private_use, tehtar
from .digits import DIGITS
from .letters import LETTERS
from .parts import moved
from .punctuation import PUNCTUATION
from .rare import RARE
from .sign import Band, Letter, Mark, Place, Sign

# What carries marks.
LETTERS_AND_DIGITS = LETTERS | DIGITS | {code: sign for code, sign in RARE.items() if isinstance(sign, Letter)}
# Every code of the eight-bit table that has a sign.
SIGNS: dict[int, Sign] = LETTERS | DIGITS | RARE | tehtar.MARKS | tehtar.HOOKS | PUNCTUATION

# The axis of the marks that find their place by anchors, where nothing tells them another.
FLOATING_MIDDLE = -tehtar.ABOVE[Place.MEDIUM]


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


def floating_marks() -> dict[int, Mark]:
    """The marks of the private-use arrangement, which stand wherever a letter has their anchor."""
    shapes = {
        Band.ABOVE: tehtar.TEHTAR_ABOVE
        | {
            "doubleacute": tehtar.double_acute(),
            "doublerightcurl": tehtar.doubled(tehtar.right_curl()),
            "doubleleftcurl": tehtar.doubled(tehtar.left_curl()),
        },
        Band.BELOW: tehtar.TEHTAR_BELOW,
    }
    for band in (Band.BAR_ABOVE, Band.BAR_BELOW):
        shapes[band] = {"bar": tehtar.bar(tehtar.BAR_LENGTH[Place.MEDIUM], tehtar.BAND_HEIGHTS[band])}
    marks = {}
    for private, (band, name) in private_use.MARKS.items():
        strokes = moved(shapes[band][name], FLOATING_MIDDLE)
        title = f"{name}{band.value.replace(' ', '')}.floating"
        marks[private] = Mark(title, strokes, 0, FLOATING_MIDDLE, band, pen=tehtar.pen_of(name))
    return marks


def anchor(letter: Letter, band: Band) -> tuple[float, float]:
    """Where the middle of the marks of a band stands on a letter."""
    if band is Band.BELOW:
        usual = tehtar.BELOW[letter.below]
    elif band is Band.ABOVE:
        usual = tehtar.ABOVE[letter.above]
    elif band is Band.INSIDE:
        usual = tehtar.INSIDE
    else:
        usual = tehtar.ABOVE[Place.WIDE if letter.above is letter.below is Place.WIDE else Place.MEDIUM]
    x, *y = letter.exceptions.get(band, (letter.advance - usual,))
    return x, *(y or [tehtar.BAND_HEIGHTS[band]])
