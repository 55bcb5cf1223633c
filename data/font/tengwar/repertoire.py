"""All signs of the font under their codes and characters."""

from __future__ import annotations

from . import bars, private_use, tehtar
from .bars import BARS
from .codes import code_of
from .digits import DIGITS
from .hooks import HOOKS
from .letters import LETTERS
from .places import BACK_ABOVE, HEIGHTS
from .punctuation import PUNCTUATION
from .rare import RARE
from .sign import ABOVE, BAR_ABOVE, BAR_BELOW, BELOW, MEDIUM, Letter, Mark, Sign
from .tehtar import TEHTAR, Tehta

# Every code of the eight-bit table that has a sign.
SIGNS: dict[int, Sign] = LETTERS | DIGITS | RARE | TEHTAR | BARS | HOOKS | PUNCTUATION
# What carries marks.
CARRYING = [sign for sign in SIGNS.values() if isinstance(sign, Letter)]


def private_codes() -> dict[int, list[int]]:
    """The private-use characters of the codes that have any."""
    result: dict[int, list[int]] = {}
    for private, key in private_use.CODES.items():
        result.setdefault(code_of(key), []).append(private)
    return result


def floating_marks() -> dict[int, Mark]:
    """The marks of the private-use arrangement, which stand wherever a letter has their anchor."""
    shapes = {ABOVE: tehtar.SHAPES_ABOVE | tehtar.SHAPES_DOUBLED, BELOW: tehtar.SHAPES_BELOW}
    for band in (BAR_ABOVE, BAR_BELOW):
        shapes[band] = {"bar": Tehta(bars.bar(bars.LENGTH[MEDIUM], HEIGHTS[band]))}
    marks = {}
    for private, (band, name) in private_use.MARKS.items():
        title = f"{name}{band.value.replace(' ', '')}.floating"
        marks[private] = tehtar.mark(title, shapes[band][name], -BACK_ABOVE[MEDIUM], band)
    return marks
