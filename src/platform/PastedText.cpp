#include "platform/PastedText.h"

namespace {

bool isLineEnd(QChar character)
{
    constexpr QChar nextLine(0x85);
    return character == u'\r' || character == u'\n' || character == nextLine ||
           character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
}

bool isText(QChar character)
{
    return character >= u' ' || (character >= u'\t' && character <= u'\r');
}

} // namespace

QString pastedText(const QString &text)
{
    QString result;
    result.reserve(text.size());
    QChar previous;
    for (const QChar character : text) {
        if (isLineEnd(character)) {
            if (previous != u'\r' || character != u'\n')
                result.append(QStringLiteral("\r\n"));
        } else if (isText(character)) {
            result.append(character);
        }
        previous = character;
    }
    return result;
}
