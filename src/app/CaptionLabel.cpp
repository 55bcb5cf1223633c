#include "app/CaptionLabel.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

namespace {

constexpr int SideMargin = 6;
constexpr int HeightMargin = 3;

} // namespace

CaptionLabel::CaptionLabel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setContentsMargins(SideMargin, HeightMargin, SideMargin, HeightMargin);
}

void CaptionLabel::setCaption(const QString &caption)
{
    if (caption == text())
        return;
    setText(caption);
    Q_EMIT captionChanged(caption);
}

QSize CaptionLabel::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(text()) + 2 * SideMargin,
            fontMetrics().height() + 2 * HeightMargin};
}

bool CaptionLabel::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QLabel::event(event);
    const QString tip = shownText() == text() ? QString() : text().toHtmlEscaped();
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), tip, this);
    return true;
}

void CaptionLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(contentsRect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     shownText());
}

void CaptionLabel::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        Q_EMIT clicked();
}

QString CaptionLabel::shownText() const
{
    return fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width());
}
