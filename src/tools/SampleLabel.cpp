#include "tools/SampleLabel.h"

#include "tools/SignPainter.h"

#include <QPainter>

void SampleLabel::paintEvent(QPaintEvent *event)
{
    if (text().size() != 1) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    drawSign(painter, contentsRect(), font(), text().front(), palette().text().color());
}
