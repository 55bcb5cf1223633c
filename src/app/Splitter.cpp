#include "app/Splitter.h"

#include "app/AccessibleSplitter.h"
#include "app/WindowLayout.h"
#include "platform/ScreenUnits.h"

#include <QMouseEvent>
#include <QStyleOption>
#include <QStylePainter>

namespace {

QAccessibleInterface *makeAccessible(const QString &, QObject *object)
{
    auto *splitter = qobject_cast<Splitter *>(object);
    return splitter != nullptr ? new AccessibleSplitter(*splitter) : nullptr;
}

} // namespace

Splitter::Splitter(QWidget &bar, QWidget *parent) : QWidget(parent), bar_(bar)
{
    constexpr int Width = 6; // pixels
    setFixedWidth(Width);
    setCursor(Qt::SplitHCursor);
    setFocusPolicy(Qt::TabFocus); // a drag leaves the focus in the pane
    QAccessible::installFactory(makeAccessible);
    bar_.hide();
}

qint64 Splitter::room() const
{
    return toTwips(parentWidget()->width(), twipsPerPixelX(*this));
}

void Splitter::moveTo(qint64 twips)
{
    left_ = clampSplit(twips, room());
    Q_EMIT moved();
    QAccessibleValueChangeEvent event(this, AccessibleSplitter(*this).currentValue());
    QAccessible::updateAccessibility(&event);
}

void Splitter::keyPressEvent(QKeyEvent *event)
{
    switch (event->modifiers() & ~Qt::KeypadModifier ? Qt::Key_unknown : event->key()) {
    case Qt::Key_Left:
        return moveTo(left_ - Step);
    case Qt::Key_Right:
        return moveTo(left_ + Step);
    case Qt::Key_Home:
        return moveTo(0);
    case Qt::Key_End:
        return moveTo(room());
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
        Q_EMIT finished();
        return;
    default:
        QWidget::keyPressEvent(event);
    }
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
    moveTo(barLeft_);
    bar_.hide();
    dragging_ = false;
}

void Splitter::moveBar(qint64 twips)
{
    barLeft_ = clampSplit(twips, room());
    bar_.move(toPixels(static_cast<double>(barLeft_), twipsPerPixelX(*this)), bar_.y());
}

void Splitter::paintEvent(QPaintEvent *)
{
    QStyleOption option;
    option.initFrom(this);
    option.state |= QStyle::State_Horizontal;
    QStylePainter painter(this);
    if (hasFocus())
        painter.fillRect(rect(), palette().highlight());
    painter.drawControl(QStyle::CE_Splitter, option);
}
