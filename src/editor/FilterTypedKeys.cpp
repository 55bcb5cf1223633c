#include "editor/FilterTypedKeys.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace {

class KeyFilter final : public QObject
{
public:
    KeyFilter(QLineEdit &control, std::function<char16_t(char16_t)> filter)
        : QObject(&control), control_(control), filter_(std::move(filter))
    {
        control.installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() != QEvent::KeyPress)
            return false;
        const QString text = static_cast<QKeyEvent *>(event)->text();
        if (text.isEmpty() || (!text.front().isPrint() && !text.front().isSurrogate()))
            return false;
        const char16_t typed = text.front().unicode();
        const char16_t kept = filter_(typed);
        if (kept == typed)
            return false;
        if (kept != 0)
            control_.insert(QChar(kept));
        return true;
    }

private:
    QLineEdit &control_;
    std::function<char16_t(char16_t)> filter_;
};

} // namespace

void filterTypedKeys(QLineEdit &control, std::function<char16_t(char16_t)> filter)
{
    new KeyFilter(control, std::move(filter));
}
