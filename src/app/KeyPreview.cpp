#include "app/KeyPreview.h"

#include <QKeyEvent>
#include <QWidget>

KeyPreview::KeyPreview(QWidget &window) : QObject(&window)
{
    watch(window);
}

void KeyPreview::watch(QObject &control)
{
    control.installEventFilter(this);
}

bool KeyPreview::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyRelease)
        seenAtControl_ = false;
    if (event->type() != QEvent::KeyPress)
        return false;
    const bool isAtControl = watched != parent();
    if (isAtControl || !seenAtControl_)
        preview(*static_cast<const QKeyEvent *>(event));
    seenAtControl_ = isAtControl;
    return false;
}

void KeyPreview::preview(const QKeyEvent &key)
{
    constexpr auto Modifiers = Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier;
    if (key.key() == Qt::Key_F5 && !(key.modifiers() & Modifiers))
        Q_EMIT refreshPressed();
    else if (key.key() == Qt::Key_Escape)
        Q_EMIT abortPressed();
}
