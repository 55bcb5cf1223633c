#include "app/Splitter.h"

#include "app/WindowLayout.h"
#include "platform/ScreenUnits.h"

#include <QMouseEvent>
#include <QStyleOption>
#include <QStylePainter>

Splitter::Splitter(QWidget &bar, QWidget *parent) : QWidget(parent), bar_(bar)
{
    constexpr int Width = 6; // pixels
    setFixedWidth(Width);
    setCursor(Qt::SplitHCursor);
    bar_.hide();
}

void Splitter::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    constexpr int Shorter = 20; // twips
    barLeft_ = left_;
    grabbedAt_ = event->position().toPoint().x();
    bar_.setGeometry(x(), y(), width(), height() - toPixels(Shorter, twipsPerPixelY(*this)));
    bar_.show();
    bar_.raise();
    dragging_ = true;
}

void Splitter::mouseMoveEvent(QMouseEvent *event)
{
    if (!dragging_)
        return;
    const int left = mapToParent(event->position().toPoint()).x() - grabbedAt_;
    if (left != x() || bar_.x() != x())
        moveBar(toTwips(left, twipsPerPixelX(*this)));
}

void Splitter::mouseReleaseEvent(QMouseEvent *event)
{
    if (!dragging_ || event->button() != Qt::LeftButton)
        return;
    moveBar(barLeft_);
    left_ = barLeft_;
    Q_EMIT moved();
    bar_.hide();
    dragging_ = false;
}

void Splitter::moveBar(qint64 twips)
{
    const double perPixel = twipsPerPixelX(*this);
    barLeft_ = clampSplit(twips, toTwips(parentWidget()->width(), perPixel));
    bar_.move(toPixels(static_cast<double>(barLeft_), perPixel), bar_.y());
}

void Splitter::paintEvent(QPaintEvent *)
{
    QStyleOption option;
    option.initFrom(this);
    option.state |= QStyle::State_Horizontal;
    QStylePainter(this).drawControl(QStyle::CE_Splitter, option);
}
