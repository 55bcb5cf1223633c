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

    /// Previews what is pressed in a control of the window that can have the focus itself.
    void watch(QObject &control);

Q_SIGNALS:
    void refreshPressed();
    void abortPressed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void preview(const QKeyEvent &key);

    /// Whether the key that is down was seen at a control. If the control leaves it alone, it comes
    /// by again at the window.
    bool seenAtControl_ = false;
};
