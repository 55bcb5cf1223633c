"""Rare letters, alternative shapes and ligatures."""

from __future__ import annotations

from .geometry import curve, line
from .letters import BEARING, DOUBLE, SINGLE, hwesta_sindarinwa, osse, primary, romen
from .metrics import BASE, HANGING, MIDDLE, RAISED, TOP
from .parts import BOW, INNER_BOW, bows, closed_bow, flick, foot_stroke, mirrored, moved, open_bow, stem, stem_lean, turned
from .sign import Band, Letter, Place, Sign, Strokes

WIDE, MEDIUM, STEM, NARROW = Place.WIDE, Place.MEDIUM, Place.STEM, Place.NARROW
ABOVE, BELOW, BAR_ABOVE, BAR_BELOW = Band.ABOVE, Band.BELOW, Band.BAR_ABOVE, Band.BAR_BELOW


def big_six() -> Strokes:
    return (curve((486, RAISED - 20, 172), (210, 520, -118), (92, 215, -90), (290, BASE, 0), (494, 210, 90), (310, 372, 180), (112, 250, -128)),)


def epsilon() -> Strokes:
    return (
        curve((476, 404, 128), (322, 470, 180), (122, 354, -90), (324, 226, 2)),
        curve((324, 226, 182), (88, 50, -90), (310, -108, 0), (510, -6, 62)),
    )


def tall_turned_lambe(top: float) -> Strokes:
    height = top - BASE
    return (
        curve((92, top - 0.2 * height, 75), (262, top, 0), (440, top - 0.27 * height, -92), (74, BASE + 6, -138)),
        curve((74, BASE + 4, 10), (300, BASE - 2, 0), (486, BASE + 16, 26)),
    )


def round_quesse() -> Strokes:
    x = SINGLE - BEARING
    bowl = curve((x, 318, 124), (x - 176, TOP, 180), (x - 376, MIDDLE - 8, -90), (x - 196, BASE, 0), (x, 160, 55))
    return moved(stem(TOP, HANGING), x) + (bowl,)


def phi(closed: bool) -> Strokes:
    stem_strokes = stem(RAISED, HANGING) + flick(stem_lean(RAISED), RAISED)
    return moved(stem_strokes + open_bow(BOW) + turned(bows(1, closed), 0, MIDDLE), 490)


def silme_over_aha() -> Strokes:
    x = DOUBLE - BEARING
    sweep = curve((x - 690, 250, 92), (x - 520, 490, 48), (x - 300, 552, 0), (x, 540, -8))
    outer = turned(moved(closed_bow(BOW), INNER_BOW), 0, MIDDLE)
    bowl = curve((x - 520, TOP - 66, 120), (x - 590, TOP - 40, 180), (x - 700, 210, -90), (x - 500, BASE, 0), (x - 330, 200, 60))
    inner = turned(open_bow(INNER_BOW), 0, MIDDLE)
    return moved(stem(RAISED, BASE) + flick(stem_lean(RAISED), RAISED) + inner, x) + (sweep, bowl)


def table() -> dict[str, Sign]:
    malta, double = primary(1, TOP, BASE, 2)
    malta_hook = curve((780, 150, -88), (830, -60, -75), (752, -170, 180), (692, -130, 115))
    et = (
        curve((70, TOP - 40, 55), (140, TOP - 4, 5), (330, TOP - 8, 0), (420, TOP, 10)),
        curve((412, TOP, -108), (330, 140, -106), (250, -150, -118), (110, -260, 180), (60, -220, 110)),
    )
    harp_foot = curve((150, 40, -100), (140, -120, -94), (192, -240, 0), (272, -196, 60))
    cedilla = curve((300, BASE, -80), (330, -100, -85), (262, -176, 180), (206, -146, 120))
    long_bar = curve((128, TOP - 4, 0), (300, TOP - 6, 0), (470, TOP + 8, 14))
    turned_romen = turned(romen(-345), 280, MIDDLE)
    return {
        "*": Letter("silme.alt", big_six(), 600, WIDE, MEDIUM, {ABOVE: (104,), BAR_ABOVE: (486,)}),
        "I": Letter("silmenuquerna.alt", turned(big_six(), 300, MIDDLE), 600, MEDIUM, NARROW, {BELOW: (490,), BAR_BELOW: (140,)}),
        "K": Letter("esse.alt", epsilon(), 600, WIDE, MEDIUM, {BAR_ABOVE: (300, 585), BAR_BELOW: (300, -222)}),
        "<": Letter("hwestasindarinwa.alt", hwesta_sindarinwa(40, 430), 600, WIDE, MEDIUM, {ABOVE: (198,), BAR_ABOVE: (220,)}),
        "‡": Letter("osse.hook", osse() + (cedilla,), 540, MEDIUM, MEDIUM, {BELOW: (270, -306), BAR_BELOW: (270, -292)}),
        "•": Letter("harp", moved(flick(12, RAISED) + stem(RAISED, BASE), 150) + moved(open_bow(300), 150) + (harp_foot,), 560, STEM, STEM, {ABOVE: (370,), BAR_ABOVE: (370,), BELOW: (430,), BAR_BELOW: (488,)}),
        "–": Letter("silmeaha", silme_over_aha(), DOUBLE, WIDE, WIDE, {BAR_ABOVE: (465, 894)}),
        "—": Sign("and", et, 520),
        "š": Letter("malta.hook", malta + (malta_hook,), DOUBLE, WIDE, WIDE, {BAR_BELOW: (380,)}),
        "¦": Letter("hwestatinco", phi(True), 980, STEM, STEM, {BAR_ABOVE: (700,), BAR_BELOW: (700,)}),
        "§": Letter("ahatinco", phi(False), 980, STEM, STEM, {BAR_ABOVE: (700,), BAR_BELOW: (700,)}),
        "³": Letter("turnedlambe.tall", tall_turned_lambe(TOP + 206), 540, exceptions={ABOVE: (256, 806), BAR_ABOVE: (270, 894)}),
        "¾": Letter("turnedlambe", tall_turned_lambe(TOP), 540),
        "¿": Letter("turnedromen", turned_romen, 560, exceptions={ABOVE: (146,), BAR_ABOVE: (150,)}),
        "¼": Letter("telco.joining", moved(flick(0, TOP) + stem(TOP, BASE), 150) + (long_bar,), 470, MEDIUM, MEDIUM, {BAR_BELOW: (290,), BELOW: (150,)}),
        "®": Letter("twelve", mirrored(big_six(), 300), 600, MEDIUM, MEDIUM, {ABOVE: (536,), BAR_ABOVE: (104,)}),
        "Ä": Letter("quesse.alt", round_quesse(), SINGLE, MEDIUM, WIDE, {BAR_BELOW: (301,)}),
    }


RARE = {key.encode("cp1252")[0]: letter for key, letter in table().items()}
