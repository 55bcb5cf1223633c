#include "platform/SoftHyphenEdit.h"

#include "platform/SoftHyphen.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QRawFont>

namespace {

constexpr QChar symbolSoftHyphen(u'\uF0AD');

QString held(QString text)
{
    return text.replace(symbolSoftHyphen, softHyphen);
}

void putInSymbols(QLineEdit &edit)
{
    QString text = edit.text();
    if (!text.contains(softHyphen) ||
        !QRawFont::fromFont(edit.font()).supportsCharacter(symbolSoftHyphen))
        return;
    const int cursor = edit.cursorPosition();
    edit.setText(text.replace(softHyphen, symbolSoftHyphen));
    edit.setCursorPosition(cursor);
}

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
