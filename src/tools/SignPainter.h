#pragma once

#include <QChar>

class QColor;
class QFont;
class QPainter;
class QRectF;

/// Draws one sign of the font in the middle of the place, no larger than fits into it. A sign that
/// takes no room of its own, such as a vowel mark, stands on a faint dotted circle instead of a
/// letter. Unlike text layout this shows the glyph of every character, U+00AD included.
void drawSign(QPainter &painter, const QRectF &place, const QFont &font, QChar sign,
              const QColor &ink);
