"""Rare letters, alternative shapes and ligatures."""

from __future__ import annotations

from .codes import by_code
from .geometry import Stroke, curve
from .letters import BEARING, DOUBLE, SINGLE, d_shape, osse, primary, romen
from .metrics import BASE, HANGING, MIDDLE, RAISED, TOP
from .parts import BOW, INNER_BOW, bows, flick, mirrored, moved, open_bow, stem, stem_lean, turned
from .sign import ABOVE, BAR_ABOVE, BAR_BELOW, BELOW, MEDIUM, NARROW, STEM, WIDE, Letter, Sign, Strokes


def big_six() -> Strokes:
    """Silme as one closed bowl under a plain neck."""
    return (
        curve(
            (486, RAISED - 20, 172),
            (210, 520, -118),
            (92, 215, -90),
            (290, BASE, 0),
            (494, 210, 90),
            (310, 372, 180),
            (112, 250, -128),
        ),
    )


def epsilon() -> Strokes:
    return (
        curve((476, 404, 128), (322, 470, 180), (122, 354, -90), (324, 226, 2)),
        curve((324, 226, 182), (88, 50, -90), (310, -108, 0), (510, -6, 62)),
    )


def turned_lambe(top: float) -> Strokes:
    """A sign like a 2."""
    height = top - BASE
    return (
        curve((92, top - 0.2 * height, 75), (262, top, 0), (440, top - 0.27 * height, -92), (74, BASE + 6, -138)),
        curve((74, BASE + 4, 10), (300, BASE - 2, 0), (486, BASE + 16, 26)),
    )


def round_quesse() -> Strokes:
    """Quesse closed by its bow instead of a head stroke."""
    x = SINGLE - BEARING
    bowl = curve((x, 318, 124), (x - 176, TOP, 180), (x - 376, MIDDLE - 8, -90), (x - 196, BASE, 0), (x, 160, 55))
    return moved(stem(TOP, HANGING), x) + (bowl,)


def headed_stem(foot: float) -> Strokes:
    return flick(stem_lean(RAISED), RAISED) + stem(RAISED, foot)


def hwesta_turned_foot() -> Strokes:
    """Hwesta sindarinwa with its foot to the left, under the bow."""
    return d_shape(lift=74) + (curve((430, BASE, 180), (220, BASE + 2, 180), (36, BASE - 12, -156)),)


def with_tinco(closed: bool) -> Strokes:
    """Aha or hwesta whose stem carries the bow of tinco as well."""
    return moved(headed_stem(HANGING) + open_bow(BOW) + turned(bows(1, closed), 0, MIDDLE), 490)


def silme_over_aha() -> Strokes:
    """The neck of silme swept over aha, to the stem."""
    x = DOUBLE - BEARING
    sweep = curve((-690, 250, 92), (-520, 490, 48), (-300, 552, 0), (0, 540, -8))
    bowl = curve((-520, TOP - 66, 120), (-590, TOP - 40, 180), (-700, 210, -90), (-500, BASE, 0), (-330, 200, 60))
    return moved(headed_stem(BASE) + turned(open_bow(INNER_BOW), 0, MIDDLE) + (sweep, bowl), x)


def and_sign() -> Strokes:
    return (
        curve((70, TOP - 40, 55), (140, TOP - 4, 5), (330, TOP - 8, 0), (420, TOP, 10)),
        curve((412, TOP, -108), (330, 140, -106), (250, -150, -118), (110, -260, 180), (60, -220, 110)),
    )


def harp() -> Strokes:
    foot = curve((0, 40, -100), (-10, -120, -94), (42, -240, 0), (122, -196, 60))
    return moved(headed_stem(BASE) + open_bow(300) + (foot,), 150)


def joining_carrier() -> Strokes:
    bar = curve((128, TOP - 4, 0), (300, TOP - 6, 0), (470, TOP + 8, 14))
    return moved(flick(0, TOP) + stem(TOP, BASE), 150) + (bar,)


def hook_under(x: float, *knots: tuple[float, ...]) -> tuple[Stroke]:
    return (curve(*((x + knot[0], *knot[1:]) for knot in knots)),)


MALTA_HOOK = hook_under(780, (0, 150, -88), (50, -60, -75), (-28, -170, 180), (-88, -130, 115))
OSSE_HOOK = hook_under(300, (0, BASE, -80), (30, -100, -85), (-38, -176, 180), (-94, -146, 120))


def table() -> dict[str, Sign]:
    neck = {ABOVE: (104,), BAR_ABOVE: (486,)}
    tail = {BELOW: (490,), BAR_BELOW: (140,)}
    raised_right = {ABOVE: (198,), BAR_ABOVE: (220,)}
    middle_stem = {BAR_ABOVE: (700,), BAR_BELOW: (700,)}
    beside_harp = {ABOVE: (370,), BAR_ABOVE: (370,), BELOW: (430,), BAR_BELOW: (488,)}
    tall = {ABOVE: (256, 806), BAR_ABOVE: (270, 894)}
    turned_neck = {ABOVE: (146,), BAR_ABOVE: (150,)}
    mirrored_neck = {ABOVE: (536,), BAR_ABOVE: (104,)}
    malta = primary(1, TOP, BASE, 2)[0]
    epsilon_exceptions = {BAR_ABOVE: (300, 585), BAR_BELOW: (300, -222)}
    return {
        "*": Letter("silme.alt", big_six(), 600, WIDE, MEDIUM, neck),
        "I": Letter("silmenuquerna.alt", turned(big_six(), 300, MIDDLE), 600, MEDIUM, NARROW, tail),
        "K": Letter("esse.alt", epsilon(), 600, WIDE, MEDIUM, epsilon_exceptions),
        "<": Letter("hwestasindarinwa.alt", hwesta_turned_foot(), 600, WIDE, MEDIUM, raised_right),
        "‡": Letter("osse.hook", osse() + OSSE_HOOK, 540, exceptions={BELOW: (270, -306), BAR_BELOW: (270, -292)}),
        "•": Letter("harp", harp(), 560, STEM, STEM, beside_harp),
        "–": Letter("silmeaha", silme_over_aha(), DOUBLE, WIDE, WIDE, {BAR_ABOVE: (465, 894)}),
        "—": Sign("and", and_sign(), 520),
        "š": Letter("malta.hook", malta + MALTA_HOOK, DOUBLE, WIDE, WIDE, {BAR_BELOW: (380,)}),
        "¦": Letter("hwestatinco", with_tinco(closed=True), 980, STEM, STEM, middle_stem),
        "§": Letter("ahatinco", with_tinco(closed=False), 980, STEM, STEM, middle_stem),
        "³": Letter("turnedlambe.tall", turned_lambe(TOP + 206), 540, exceptions=tall),
        "¾": Letter("turnedlambe", turned_lambe(TOP), 540),
        "¿": Letter("turnedromen", turned(romen(-345), 280, MIDDLE), 560, exceptions=turned_neck),
        "¼": Letter("telco.joining", joining_carrier(), 470, exceptions={BELOW: (150,), BAR_BELOW: (290,)}),
        "®": Letter("twelve", mirrored(big_six(), 300), 600, exceptions=mirrored_neck),
        "Ä": Letter("quesse.alt", round_quesse(), SINGLE, MEDIUM, WIDE, {BAR_BELOW: (301,)}),
    }


RARE = by_code(table())
