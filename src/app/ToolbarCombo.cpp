#include "app/ToolbarCombo.h"

#include <QKeyEvent>
#include <utility>

ToolbarCombo::ToolbarCombo(QWidget *parent) : QComboBox(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setInsertPolicy(NoInsert);
    // measuring a thousand entries would take long
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
}

void ToolbarCombo::showPopup()
{
    popupIsOpen_ = true;
    QComboBox::showPopup();
}

void ToolbarCombo::hidePopup()
{
    QComboBox::hidePopup();
    if (std::exchange(popupIsOpen_, false))
        Q_EMIT finished();
}

void ToolbarCombo::keyPressEvent(QKeyEvent *event)
{
    QComboBox::keyPressEvent(event);
    const int key = event->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape)
        Q_EMIT finished();
}

void ToolbarCombo::wheelEvent(QWheelEvent *event)
{
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}
