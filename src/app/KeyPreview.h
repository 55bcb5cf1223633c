#pragma once

#include <QObject>

class QKeyEvent;
class QWidget;

/// Shows the window the keys that it wants to see before its controls, which get them all the same:
/// F5 without modifiers, and Esc.
class KeyPreview final : public QObject
{
    Q_OBJECT

public:
    /// Previews what is pressed in the window itself. Its parent is the window.
    explicit KeyPreview(QWidget &window);

    /// Previews what is pressed in a control of the window that can have the focus.
    void watch(QObject &control);

Q_SIGNALS:
    void refreshPressed();
    void abortPressed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void preview(const QKeyEvent &key);

    /// The last key seen. A key that its control leaves alone comes by again at the control's
    /// parents and at the window.
    quint64 lastTime_ = 0;
    int lastKey_ = 0;
};
