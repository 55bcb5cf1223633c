#include "platform/SoftHyphenEdit.h"

#include "platform/SoftHyphen.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRawFont>

namespace {

constexpr QChar symbolSoftHyphen(u'\uF0AD');

QString held(QString text)
{
    return text.replace(symbolSoftHyphen, softHyphen);
}

bool canShow(const QLineEdit &edit)
{
    return QRawFont::fromFont(edit.font()).supportsCharacter(symbolSoftHyphen);
}

QString inSymbols(QString text)
{
    return text.replace(softHyphen, symbolSoftHyphen);
}

/// Replaces what has come in by other ways than the keyboard.
void putInSymbols(QLineEdit &edit)
{
    const QString text = edit.text();
    if (!text.contains(softHyphen) || !canShow(edit))
        return;
    const int cursor = edit.cursorPosition();
    edit.setText(inSymbols(text));
    edit.setCursorPosition(cursor);
}

/// Replaces what is typed or pasted before it comes in, so that it can be undone.
class SymbolInput final : public QObject
{
public:
    explicit SymbolInput(QLineEdit &edit) : QObject(&edit), edit_(edit)
    {
        edit.installEventFilter(this);
    }

    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() != QEvent::KeyPress)
            return false;
        const auto &key = *static_cast<QKeyEvent *>(event);
        const QString text =
            key.matches(QKeySequence::Paste) ? QGuiApplication::clipboard()->text() : key.text();
        if (!text.contains(softHyphen) || !canShow(edit_))
            return false;
        edit_.insert(inSymbols(text));
        return true;
    }

private:
    QLineEdit &edit_;
};

/// Puts U+00AD back into what the line edit, if it has the focus, has just copied.
void restoreCopy(const QLineEdit &edit, QClipboard &clipboard, QClipboard::Mode mode)
{
    if (!edit.hasFocus())
        return;
    const QString text = clipboard.text(mode);
    if (text.contains(symbolSoftHyphen))
        clipboard.setText(held(text), mode);
}

} // namespace

void showSoftHyphens(QLineEdit &edit)
{
    new SymbolInput(edit);
    QObject::connect(&edit, &QLineEdit::textChanged, &edit, [&edit] { putInSymbols(edit); });
    QClipboard &clipboard = *QGuiApplication::clipboard();
    QObject::connect(
        &clipboard, &QClipboard::changed, &edit,
        [&edit, &clipboard](QClipboard::Mode mode) { restoreCopy(edit, clipboard, mode); });
    putInSymbols(edit);
}

QString heldText(const QLineEdit &edit)
{
    return held(edit.text());
}
