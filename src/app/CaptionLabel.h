#pragma once

#include <QLabel>

/// The caption above a pane: plain text, shortened in the middle of its line where the pane is too
/// narrow, and whole in its tool tip then.
class CaptionLabel final : public QLabel
{
    Q_OBJECT

public:
    explicit CaptionLabel(QWidget *parent = nullptr);

    void setCaption(const QString &caption);

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void captionChanged(const QString &caption);
    void clicked();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    [[nodiscard]] QString shownText() const;
};
