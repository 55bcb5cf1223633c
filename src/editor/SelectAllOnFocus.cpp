#include "editor/SelectAllOnFocus.h"

#include <QEvent>
#include <QLineEdit>

namespace {

class FocusSelector final : public QObject
{
public:
    explicit FocusSelector(QLineEdit &control) : QObject(&control), control_(control)
    {
        control.installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        // a click would set its caret after FocusIn and undo the selection, so it is made later
        if (event->type() == QEvent::FocusIn)
            QMetaObject::invokeMethod(&control_, &QLineEdit::selectAll, Qt::QueuedConnection);
        return false;
    }

private:
    QLineEdit &control_;
};

} // namespace

void SelectAllOnFocus(QLineEdit &control)
{
    new FocusSelector(control);
}
