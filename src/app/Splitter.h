#pragma once

#include <QWidget>

/// The splitter between the panes. While it is dragged a bar moves with the mouse; the splitter
/// itself follows when the button is let go. Its place is kept in twips, so that nothing is lost
/// between the user's number and the pixels.
class Splitter final : public QWidget
{
    Q_OBJECT

public:
    /// `bar` is shown while dragging and must be a sibling.
    Splitter(QWidget &bar, QWidget *parent);

    /// The left edge in twips.
    [[nodiscard]] qint64 Left() const { return left_; }
    void setLeft(qint64 twips) { left_ = twips; }

Q_SIGNALS:
    /// The user has let go of the splitter at a new place, which is to be laid out.
    void moved();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void moveBar(qint64 twips);

    QWidget &bar_;
    qint64 left_ = 0;
    qint64 barLeft_ = 0;
    int grabbedAt_ = 0; ///< where in the splitter the mouse took it, in pixels
    bool dragging_ = false;
};
