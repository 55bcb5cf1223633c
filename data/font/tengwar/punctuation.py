"""Punctuation, and the few Latin signs that stand among the codes."""

from __future__ import annotations

from .bars import tilde
from .codes import by_code
from .geometry import curve, line
from .metrics import BASE, MIDDLE, RAISED, TOP
from .parts import turned
from .sign import Sign, Strokes
from .tehtar import dot

SPACE = 280


def dots(*places: tuple[float, float]) -> Strokes:
    return tuple(dot(x, y) for x, y in places)


def tick(x: float, y: float) -> Strokes:
    """A short slanted quotation stroke that ends at (x, y)."""
    return (curve((x + 34, y + 130, -100), (x, y, -112)),)


def comma(x: float) -> Strokes:
    return (curve((x - 8, BASE + 26, -40), (x + 18, BASE - 24, -105), (x - 34, -104, -125)),)


def parenthesis() -> Strokes:
    return (curve((214, RAISED, -138), (96, 320, -90), (214, -140, -42)),)


def question() -> Strokes:
    return (
        curve((112, -360, 95), (106, 250, 90), (130, 640, 78), (262, RAISED, 0), (392, 640, -90), (220, 436, 186)),
        curve((220, 436, 4), (448, 230, -90), (280, BASE, 180), (176, 84, 128)),
    )


def exclamation() -> Strokes:
    return (curve((250, RAISED, -120), (150, 560, -88), (196, 380, -62), (236, 200, -90), (110, -40, -130)),)


def bookmark() -> Strokes:
    left = curve((120, RAISED, -90), (116, 60, -92), (28, -180, -130))
    return (left, line((246, RAISED), (246, BASE)))


def pilcrow() -> Strokes:
    bowl = curve((330, TOP + 200, 180), (90, 460, -90), (300, 320, 0))
    top, foot = TOP + 200, -160
    head = line((330, top), (500, top))
    return (bowl, head, line((330, top), (330, foot)), line((450, top), (450, foot)))


def currency() -> Strokes:
    ring = curve((280, 330, 180), (150, 214, -90), (280, 100, 0))
    rays = [((186, 306), (110, 372)), ((374, 306), (450, 372)), ((186, 124), (110, 56)), ((374, 124), (450, 56))]
    return (ring, ring.turned(280, 215)) + tuple(line(*ray) for ray in rays)


def table() -> dict[str, Sign]:
    return {
        "=": Sign("pusta", dots((130, MIDDLE)), 260),
        "-": Sign("doublepusta", dots((130, BASE + 40), (130, TOP - 40)), 260),
        "ˆ": Sign("triplepusta", dots((130, BASE + 10), (130, MIDDLE), (130, TOP - 10)), 260),
        "\\": Sign("wave", tilde(240, MIDDLE, 190), 380),
        "Â": Sign("longwave", tilde(560, MIDDLE, 350), 700),
        "¬": Sign("doublewave", tilde(420, MIDDLE + 90, 280) + tilde(420, MIDDLE - 90, 280), 560),
        "À": Sign("question", question(), 540),
        "Á": Sign("exclamation", exclamation(), 360),
        "›": Sign("bookmark", bookmark(), 380),
        "Œ": Sign("parenleft", parenthesis(), 280),
        "œ": Sign("parenright", turned(parenthesis(), 140, 320), 280),
        "«": Sign("quotedblhigh", tick(90, 560) + tick(200, 560), 320),
        "»": Sign("quotedbllow", tick(90, -90) + tick(200, -90), 320),
        "±": Sign("quotehigh", tick(90, 560), 210),
        "²": Sign("quoteclosing", (curve((84, 680, -40), (116, 620, -105), (64, 540, -125)),), 200),
        "¹": Sign("comma", comma(120), 240),
        "º": Sign("fullstop", dots((120, BASE + 12)), 240),
        "Ã": Sign("semicolon", comma(120) + dots((120, TOP - 60)), 240),
        "·": Sign("middledot", dots((130, MIDDLE)), 260),
        "¤": Sign("currency", currency(), 560),
        "¶": Sign("pilcrow", pilcrow(), 570),
        " ": Sign("space", (), SPACE),
        "\u00a0": Sign("nobreakspace", (), SPACE),
    }


PUNCTUATION = by_code(table())
