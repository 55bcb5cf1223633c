"""The s-hooks. Left-hand ones hang under a bow; right-hand ones prolong one and have an advance."""

from __future__ import annotations

from dataclasses import dataclass

from .codes import by_code, code_of
from .geometry import curve
from .metrics import BASE, TOP
from .parts import moved
from .sign import Mark, Sign, Strokes

# Where right-hand hooks set out, before the edge of their letter: in the foot of an open bow, in the
# side of a closed one, in the top of a stem, and in the bowl of lambe or alda.
FOOT = (-280, BASE, 0)
SIDE = (-126, 214, 0)
STEM_TOP = (-118, TOP, 0)
BOWL = (-250, -222, 4)
# How the hook of an open bow goes on.
TURN = ((-60, BASE, -4), (66, -76, -95), (-16, -176, 180), (-76, -138, 110))


def hanging(x: float) -> Strokes:
    return moved((curve((0, BASE, -150), (-62, -52, -118), (-34, -132, -10), (36, -92, 55)),), x)


def loop(start: tuple[float, ...], rise: float) -> Strokes:
    """A flourish that rises to the right, turns back and comes down to the left."""
    return (
        curve(
            start,
            (-50, rise + BASE + 8, 16),
            (170, rise + 196, 74),
            (126, rise + 334, 168),
            (54, rise + 236, -94),
            (30, rise - 60, -104),
            (-100, rise - 208, -168),
            (-180, rise - 178, 128),
        ),
    )


def hook(name: str, advance: float, *knots: tuple[float, ...]) -> Sign:
    return Sign(name, (curve(*knots),), advance)


@dataclass(frozen=True)
class Variant:
    """The shape that a hook takes behind some signs, in whose way its own would be."""

    code: int
    sign: Sign
    # Each of these ways to stand in front of the hook is enough: sets of codes, one after the other.
    behind: tuple[tuple[str, ...], ...]


HOOKS = by_code(
    {
        "|": Mark("hookleft", hanging(-315), 0, -315),
        "}": Mark("hookleft.narrow", hanging(-150), 0, -150),
        "+": hook("hookright", 120, FOOT, *TURN),
        "_": hook(
            "hookright.lambe",
            140,
            *(BOWL, (-90, -172, 26), (16, -134, -8), (94, -212, -95), (20, -296, 180), (-34, -262, 112)),
        ),
        "¡": hook("hookright.lifted", 150, SIDE, (10, 206, -20), (106, 70, -92), (40, -40, 180), (-10, -8, 112)),
        "¢": hook(
            "hookright.raised",
            150,
            *(STEM_TOP, (10, TOP - 10, -18), (96, TOP - 124, -94), (26, TOP - 222, 180), (-22, TOP - 190, 112)),
        ),
        "£": Sign("hookright.looped", loop(FOOT, 0), 220),
        "¥": Sign("hookright.lambelooped", loop(BOWL, -140), 230),
        "Å": hook("hookright.upward", 150, FOOT, (-60, BASE, -2), (64, 70, 56), (90, 160, 88)),
        "Æ": hook("hookright.raisedupward", 150, STEM_TOP, (-10, TOP - 2, 8), (72, TOP + 74, 64), (86, TOP + 140, 86)),
        "Ç": hook("hookright.downward", 160, FOOT, (-60, BASE, -4), (66, -80, -88), (64, -190, -95), (124, -222, 30)),
    }
)

# Letters whose tail or leg crosses the baseline: their hook sets out from there.
FORKED = "7u"
TAILED = "i,"
LEGGED = "9l"
FORK = (-252, BASE, 0)
TAIL = (-180, BASE, 0)
LEG = (-90, BASE, 0)
# Signs of doubling below; a left-hand hook hangs from them. A vowel sign and a dot may stand between.
DOUBLING = "\"':;"
VOWELS = "#EDC$RFV%TGB^YHN&UJMØÙÚÛÔÕÖ×ÜÝÞßèéêë"
DOUBLED_DROP = -138


def short_hook(name: str, start: tuple[float, ...], letters: str) -> Variant:
    return Variant(code_of("+"), hook(name, 120, start, *TURN), ((letters,), (letters, VOWELS)))


VARIANTS = (
    Variant(
        code_of("|"),
        Mark("hookleft.low", moved(hanging(-315), 0, DOUBLED_DROP), 0, -315),
        ((DOUBLING,), (DOUBLING, VOWELS)),
    ),
    short_hook("hookright.fork", FORK, FORKED),
    short_hook("hookright.tail", TAIL, TAILED),
    short_hook("hookright.leg", LEG, LEGGED),
)
