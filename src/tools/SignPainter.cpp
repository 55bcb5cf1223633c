#include "tools/SignPainter.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QRawFont>
#include <algorithm>

namespace {

/// The outline of the font's glyph, with its origin at 0, 0; empty where the font has none.
QPainterPath outline(const QRawFont &font, QChar sign)
{
    const QList<quint32> glyphs = font.glyphIndexesForString(sign);
    return font.supportsCharacter(sign) && !glyphs.isEmpty() ? font.pathForGlyph(glyphs.front())
                                                             : QPainterPath();
}

bool takesNoRoom(const QRawFont &font, QChar sign)
{
    const QList<QPointF> advances = font.advancesForGlyphIndexes(font.glyphIndexesForString(sign));
    return !advances.isEmpty() && advances.front().x() <= 0;
}

/// Stands on the baseline in place of a letter, in the middle over x.
QRectF letterCircle(const QRawFont &font, qreal x)
{
    const qreal size = font.xHeight() > 0 ? font.xHeight() : font.ascent() / 2;
    return {x - size / 2, -size, size, size};
}

} // namespace

void drawSign(QPainter &painter, const QRectF &place, const QFont &font, QChar sign,
              const QColor &ink)
{
    // A line of the font fills the height.
    QFont fitting = font;
    constexpr qreal TrialSize = 100;
    fitting.setPixelSize(int(TrialSize));
    const qreal lineHeight = std::max(QFontMetricsF(fitting).height(), TrialSize);
    fitting.setPixelSize(std::max(int(TrialSize * place.height() / lineHeight), 1));

    const QRawFont raw = QRawFont::fromFont(fitting);
    const QPainterPath shape = outline(raw, sign);
    painter.save();
    if (shape.isEmpty()) {
        // Another font may have it; what no font can have would be shown as a box.
        painter.setFont(fitting);
        painter.setPen(ink);
        if (sign.isPrint())
            painter.drawText(place, Qt::AlignCenter, sign);
        painter.restore();
        return;
    }
    const QRectF bounds = shape.boundingRect();
    const bool needsCircle = takesNoRoom(raw, sign);
    const QRectF circle = letterCircle(raw, bounds.center().x());
    const QRectF all = needsCircle ? bounds.united(circle) : bounds;
    const qreal line = raw.ascent() + raw.descent();
    const qreal scale =
        std::min({qreal(1), place.width() / all.width(), place.height() / all.height()});
    // Letters stand on one line unless a tall one must be moved to stay in its place.
    const qreal baseline = place.center().y() + scale * (raw.ascent() - line / 2);
    const qreal top = std::clamp(baseline + scale * all.top(), place.top(),
                                 std::max(place.bottom() - scale * all.height(), place.top()));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(place.center().x() - scale * all.center().x(), top - scale * all.top());
    painter.scale(scale, scale);
    if (needsCircle) {
        QColor faint = ink;
        faint.setAlphaF(0.45F);
        painter.setPen(QPen(faint, 1, Qt::DotLine));
        painter.drawEllipse(circle);
    }
    painter.fillPath(shape, ink);
    painter.restore();
}
