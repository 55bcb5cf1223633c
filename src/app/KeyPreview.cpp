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
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto &key = *static_cast<const QKeyEvent *>(event);
    const bool cameBy = key.timestamp() == lastTime_ && key.key() == lastKey_;
    if (watched != parent() || !cameBy)
        preview(key);
    lastTime_ = key.timestamp();
    lastKey_ = key.key();
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
