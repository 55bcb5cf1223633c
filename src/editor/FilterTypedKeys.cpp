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
        const auto &key = *static_cast<QKeyEvent *>(event);
        const QString text = key.text();
        // Control alone makes commands of letters; with Alt it is AltGr on some keyboards.
        const bool isCommand = (key.modifiers() & ~Qt::ShiftModifier) == Qt::ControlModifier;
        if (isCommand || text.isEmpty() || !(text.front().isPrint() || text.front().isSurrogate()))
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
