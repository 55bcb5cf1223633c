"""The pen at work: the strokes of a sign become the outline of its ink."""

from __future__ import annotations

import fontforge

from .metrics import Style
from .sign import Mark, Sign


def nib_contour(curves):
    contour = fontforge.contour()
    start = curves[-1][2]
    contour.moveTo(start.real, start.imag)
    for points in curves:
        contour.cubicTo(*((p.real, p.imag) for p in points))
    contour.closed = True
    return contour


def draw(glyph, sign: Sign, style: Style) -> None:
    pen = glyph.glyphPen()
    for stroke in sign.strokes:
        segments = stroke.mapped(style.skeleton).segments
        pen.moveTo((segments[0][0].real, segments[0][0].imag))
        for _, leaving, arriving, end in segments:
            pen.curveTo(*((p.real, p.imag) for p in (leaving, arriving, end)))
        pen.endPath()
    pen = None  # closes the drawing
    size = sign.pen * (style.mark_pen if isinstance(sign, Mark) else 1.0)
    glyph.stroke("convex", nib_contour(style.pen.nib(size)), removeoverlap="contour")
    # On whole units no edges lie all but on each other, which is what a union may stumble over.
    glyph.round()
    glyph.removeOverlap()
    ink = glyph.boundingBox()
    glyph.simplify(0.8, ("setstarttoextremum", "removesingletonpoints"))
    glyph.addExtrema("only_good_rm")
    glyph.round()
    if any(abs(before - after) > 2 for before, after in zip(ink, glyph.boundingBox())):
        raise RuntimeError(f"The outline of {glyph.glyphname} changed while it was simplified")
    glyph.canonicalContours()
    glyph.canonicalStart()
    glyph.correctDirection()
    glyph.width = round(sign.advance * style.advance_scale)
