#include "app/ToolbarCombo.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QScreen>
#include <QStyle>

ToolbarCombo::ToolbarCombo(QWidget *parent) : QComboBox(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setInsertPolicy(NoInsert);
    // measuring a thousand entries would take long
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
}

void ToolbarCombo::showPopup()
{
    const int entries = view()->sizeHintForColumn(0) +
                        style()->pixelMetric(QStyle::PM_ScrollBarExtent) + 2 * view()->frameWidth();
    view()->setMinimumWidth(qMin(entries, screen()->availableSize().width() / 2));
    // a click elsewhere hides the list without telling the combo box
    view()->window()->installEventFilter(this);
    QComboBox::showPopup();
}

bool ToolbarCombo::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Hide)
        Q_EMIT finished();
    return QComboBox::eventFilter(watched, event);
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
