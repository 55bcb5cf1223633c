"""Draws the application's icon and splash picture with the letters of the font.

usage: make_artwork.py DATA, which writes DATA/icons/quillon.svg and DATA/splash/splash.svg
"""

from __future__ import annotations

import sys
from pathlib import Path

import fontforge

sys.path.insert(0, str(Path(__file__).parent))

from tengwar.codes import code_of  # noqa: E402
from tengwar.metrics import REGULAR_PEN, Affine, Pen, Style, fitted  # noqa: E402
from tengwar.outline import draw  # noqa: E402
from tengwar.places import HEIGHTS, anchor  # noqa: E402
from tengwar.repertoire import SIGNS  # noqa: E402
from tengwar.sign import Letter, Mark  # noqa: E402

# Quesse alone for small sizes, and "Quillon" as the English mode writes it.
INITIAL = "z"
NAME = "z`Mj°T5^"
VERSE = "lE j.E7T`V jE4#6 jE,T 8~M7T5$5"

ICON_PEN = Pen(width=156, thickness=60, angle=35)
ICON_STYLE = Style("Icon", ICON_PEN, fitted(ICON_PEN, 1.05, 0))
NAME_STYLE = Style("Splash", REGULAR_PEN, Affine())


def ink(text: str, style: Style) -> tuple[str, tuple[float, float, float, float]]:
    """The SVG path of a line of signs, y pointing down, and its bounds (left, top, right, bottom)."""
    font = fontforge.font()
    line = font.createChar(-1, "line")
    x, letter, letter_x = 0.0, None, 0.0
    for character in text:
        sign = SIGNS[code_of(character)]
        dx, dy = x, 0.0
        if isinstance(sign, Mark) and isinstance(letter, Letter) and sign.band in letter.exceptions:
            place = anchor(letter, sign.band)
            dx = letter_x + place[0] - sign.middle
            dy = place[1] - HEIGHTS[sign.band]
        glyph = font.createChar(-1, f"at{x}{character}")
        draw(glyph, sign, style)
        glyph.transform((1, 0, 0, 1, dx * style.advance_scale, dy))
        line.foreground += glyph.foreground
        if not isinstance(sign, Mark):
            letter, letter_x = sign, x
            x += sign.advance
    left, bottom, right, top = line.boundingBox()
    return "".join(contour_path(contour) for contour in line.foreground), (left, -top, right, -bottom)


def contour_path(contour) -> str:
    """A closed contour of lines and cubic curves as SVG path data."""
    points = list(contour)
    path = f"M{points[0].x:g} {-points[0].y:g}"
    controls = []
    for point in points[1:] + points[:1]:
        if not point.on_curve:
            controls.append(point)
            continue
        path += "C" if controls else "L"
        path += " ".join(f"{p.x:g} {-p.y:g}" for p in (*controls, point))
        controls = []
    return path + "Z"


def fitted_path(text: str, style: Style, box: tuple[float, float, float, float], colour: str) -> str:
    """The signs as large as they fit into the middle of the box (left, top, right, bottom)."""
    path, (left, top, right, bottom) = ink(text, style)
    scale = min((box[2] - box[0]) / (right - left), (box[3] - box[1]) / (bottom - top))
    x = (box[0] + box[2]) / 2 - scale * (left + right) / 2
    y = (box[1] + box[3]) / 2 - scale * (top + bottom) / 2
    return f'<path transform="matrix({scale:.5f} 0 0 {scale:.5f} {x:.3f} {y:.3f})" fill="{colour}" d="{path}"/>'


def gradient(name: str, top: str, bottom: str) -> str:
    return (
        f'<defs><linearGradient id="{name}" x1="0" y1="0" x2="0" y2="1">'
        f'<stop offset="0" stop-color="{top}"/><stop offset="1" stop-color="{bottom}"/></linearGradient></defs>'
    )


def picture(width: int, height: int, *parts: str) -> str:
    head = f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" viewBox="0 0 {width} {height}">'
    return "\n".join((head, *parts, "</svg>", ""))


def icon() -> str:
    return picture(
        256,
        256,
        gradient("field", "#2f7a6c", "#15463f"),
        '<rect x="8" y="8" width="240" height="240" rx="52" fill="url(#field)"/>',
        fitted_path(INITIAL, ICON_STYLE, (44, 34, 212, 222), "#fbf1d8"),
    )


def splash() -> str:
    """The name over a verse; the lower 64 pixels stay free for two lines of text."""
    return picture(
        480,
        280,
        gradient("sheet", "#fbf5e6", "#eadfc6"),
        '<rect width="480" height="280" fill="url(#sheet)"/>',
        '<rect x="6.5" y="6.5" width="467" height="267" fill="none" stroke="#b59a5b"/>',
        fitted_path(NAME, NAME_STYLE, (96, 28, 384, 158), "#173f39"),
        fitted_path(VERSE, NAME_STYLE, (90, 168, 390, 200), "#a58746"),
        '<path d="M40 212.5H440" stroke="#b59a5b"/>',
    )


def main() -> None:
    data = Path(sys.argv[1])
    for name, content in (("icons/quillon.svg", icon()), ("splash/splash.svg", splash())):
        (data / name).parent.mkdir(parents=True, exist_ok=True)
        (data / name).write_text(content, encoding="utf-8")


if __name__ == "__main__":
    main()
