#include "app/AccessibleSplitter.h"

#include "app/Splitter.h"
#include "app/WindowLayout.h"

AccessibleSplitter::AccessibleSplitter(Splitter &splitter)
    : QAccessibleWidget(&splitter, QAccessible::Splitter), splitter_(splitter)
{
}

void *AccessibleSplitter::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

QVariant AccessibleSplitter::currentValue() const
{
    return hundredths(splitter_.Left());
}

void AccessibleSplitter::setCurrentValue(const QVariant &value)
{
    splitter_.moveTo(qRound64(value.toDouble() / 100 * double(splitter_.room())));
}

QVariant AccessibleSplitter::maximumValue() const
{
    return hundredths(splitter_.room() - minimumPaneWidth);
}

QVariant AccessibleSplitter::minimumValue() const
{
    return hundredths(minimumPaneWidth);
}

QVariant AccessibleSplitter::minimumStepSize() const
{
    return hundredths(Splitter::Step);
}

double AccessibleSplitter::hundredths(qint64 twips) const
{
    return 100 * double(twips) / double(qMax<qint64>(splitter_.room(), 1));
}
