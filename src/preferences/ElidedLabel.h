#pragma once

#include <QLabel>

/// A label of one line whose text may be longer than there is room for: the middle is then left
/// out, and the tip shows it whole.
class ElidedLabel final : public QLabel
{
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget *parent = nullptr);

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    bool event(QEvent *event) override;
};
