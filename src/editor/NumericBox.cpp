#include "editor/NumericBox.h"

#include "editor/SelectAllOnFocus.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace {

class NumericFilter final : public QObject
{
public:
    NumericFilter(QLineEdit &box, NumericKeys allowed) : QObject(&box), allowed_(allowed)
    {
        box.installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() != QEvent::KeyPress)
            return false;
        const QString typed = static_cast<QKeyEvent *>(event)->text();
        return !typed.isEmpty() && typed.front().isPrint() &&
               FilterNumericKey(typed.front().unicode(), allowed_) == 0;
    }

private:
    NumericKeys allowed_;
};

} // namespace

void makeNumeric(QLineEdit &box, NumericKeys allowed)
{
    new NumericFilter(box, allowed);
    SelectAllOnFocus(box);
}
