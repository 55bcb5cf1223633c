#pragma once

#include <QWidget>

/// The splitter between the panes. While it is dragged a bar moves with the mouse; the splitter
/// itself follows when the button is let go. With the focus, Left, Right, Home and End move it. Its
/// place is kept in twips, so that nothing is lost between the user's number and the pixels.
class Splitter final : public QWidget
{
    Q_OBJECT

public:
    /// `bar` is shown while dragging and must be a sibling.
    Splitter(QWidget &bar, QWidget *parent);

    /// How far a key moves it, in twips.
    static constexpr qint64 Step = 150;

    /// The left edge in twips.
    [[nodiscard]] qint64 Left() const { return left_; }
    void setLeft(qint64 twips) { left_ = twips; }

    /// The width of the area that it divides, in twips.
    [[nodiscard]] qint64 room() const;

    /// Moves it, for the user, to where its left edge is as near to there as the panes' least width
    /// allows.
    void moveTo(qint64 twips);

Q_SIGNALS:
    /// The user has moved the splitter to a place that is to be laid out.
    void moved();

    /// The user has pressed Enter or Esc and wants the focus back where it came from.
    void finished();

protected:
    void keyPressEvent(QKeyEvent *event) override;
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
