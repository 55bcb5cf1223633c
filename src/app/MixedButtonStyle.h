#pragma once

#include <QProxyStyle>

/// Draws a tool button whose action has the property `mixed` set as neither pressed nor released:
/// a sunken button that the background shines through.
class MixedButtonStyle final : public QProxyStyle
{
    Q_OBJECT

public:
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                            QPainter *painter, const QWidget *widget) const override;
};
