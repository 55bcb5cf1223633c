#include "platform/TextPosition.h"

#include "platform/SoftHyphen.h"
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>

namespace {

constexpr char16_t softLineBreak = u'\v';

/// Noncharacters that mark a frame inside a document.
constexpr char16_t frameStart = 0xFDD0;
constexpr char16_t frameEnd = 0xFDD1;

int blockStart(const QTextBlock &block)
{
    return block.position() + block.blockNumber();
}

/// The last block that starts at or before a user's position of at least 0.
QTextBlock blockAt(const QTextDocument &document, int position)
{
    int first = 0;
    int last = document.blockCount() - 1;
    while (first < last) {
        const int middle = first + (last - first + 1) / 2;
        if (blockStart(document.findBlockByNumber(middle)) <= position)
            first = middle;
        else
            last = middle - 1;
    }
    return document.findBlockByNumber(first);
}

} // namespace

int userPosition(const QTextDocument &document, int documentPosition)
{
    return documentPosition + document.findBlock(documentPosition).blockNumber();
}

int documentPosition(const QTextDocument &document, int userPosition)
{
    const int position = std::max(userPosition, 0);
    const QTextBlock block = blockAt(document, position);
    return block.position() + std::min(position - blockStart(block), block.length() - 1);
}

int userLength(const QTextDocument &document)
{
    return document.characterCount() - 1 + document.blockCount() - 1;
}

QString userText(const QTextDocument &document, int from, int to)
{
    QString text;
    const QTextBlock last = document.findBlock(to);
    QTextBlock block = document.findBlock(from);
    text.reserve(to - from + last.blockNumber() - block.blockNumber());
    for (; block.isValid(); block = block.next()) {
        const int start = std::max(from - block.position(), 0);
        const QString whole = block.text();
        text += QStringView(whole).sliced(
            start, std::min<qsizetype>(whole.size(), to - block.position()) - start);
        if (block == last)
            break;
        text += QStringLiteral("\r\n");
    }
    text.replace(QChar::LineSeparator, QChar(softLineBreak));
    return text.replace(shownSoftHyphen, softHyphen);
}

QString documentText(const QString &userText)
{
    QString text = userText;
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    for (QChar &character : text) {
        switch (character.unicode()) {
        case u'\r':
        case QChar::ParagraphSeparator:
            character = u'\n';
            break;
        case softLineBreak:
            character = QChar::LineSeparator;
            break;
        case softHyphen.unicode():
            character = shownSoftHyphen;
            break;
        case shownSoftHyphen.unicode():
        case frameStart:
        case frameEnd:
            character = QChar::ReplacementCharacter;
            break;
        default:
            break;
        }
    }
    return text;
}

QString userForm(const QString &text)
{
    QString form = documentText(text);
    form.replace(QChar::LineSeparator, QChar(softLineBreak));
    form.replace(shownSoftHyphen, softHyphen);
    return form.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
}
