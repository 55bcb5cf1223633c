#include "app/MixedButtonStyle.h"

#include <QAction>
#include <QPainter>
#include <QStyleOptionToolButton>
#include <QToolButton>

namespace {

bool isMixed(const QWidget *widget)
{
    const auto *button = qobject_cast<const QToolButton *>(widget);
    const QAction *action = button ? button->defaultAction() : nullptr;
    return action && action->property("mixed").toBool();
}

} // namespace

void MixedButtonStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                                          QPainter *painter, const QWidget *widget) const
{
    if (control == CC_ToolButton && isMixed(widget)) {
        constexpr double HalfPressed = 0.45;
        QStyleOptionToolButton pressed(*static_cast<const QStyleOptionToolButton *>(option));
        pressed.state |= State_On | State_Sunken;
        pressed.toolButtonStyle = Qt::ToolButtonTextOnly;
        pressed.text.clear();
        painter->save();
        painter->setOpacity(HalfPressed);
        QProxyStyle::drawComplexControl(control, &pressed, painter, widget);
        painter->restore();
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}
