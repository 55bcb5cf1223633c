#pragma once

#include <QAccessibleWidget>

class Splitter;

/// What a screen reader knows of a splitter, and how it moves one. The value is the place of the
/// left edge, in hundredths of the window's inner width.
class AccessibleSplitter final : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit AccessibleSplitter(Splitter &splitter);

    void *interface_cast(QAccessible::InterfaceType type) override;

    [[nodiscard]] QVariant currentValue() const override;
    void setCurrentValue(const QVariant &value) override;
    [[nodiscard]] QVariant maximumValue() const override;
    [[nodiscard]] QVariant minimumValue() const override;
    [[nodiscard]] QVariant minimumStepSize() const override;

private:
    [[nodiscard]] double hundredths(qint64 twips) const;

    Splitter &splitter_;
};
