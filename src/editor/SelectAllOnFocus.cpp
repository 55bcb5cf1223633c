#include "editor/SelectAllOnFocus.h"

#include <QEvent>
#include <QLineEdit>
#include <QTimer>

namespace {

class FocusSelector final : public QObject
{
public:
    explicit FocusSelector(QLineEdit &control) : QObject(&control)
    {
        selection_.setSingleShot(true);
        connect(&selection_, &QTimer::timeout, &control, &QLineEdit::selectAll);
        control.installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        // a click would set its caret after FocusIn and undo the selection, so it is made later
        if (event->type() == QEvent::FocusIn)
            selection_.start(0);
        return false;
    }

private:
    QTimer selection_;
};

} // namespace

void SelectAllOnFocus(QLineEdit &control)
{
    new FocusSelector(control);
}
