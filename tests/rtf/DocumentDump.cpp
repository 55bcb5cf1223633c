#include "rtf/DocumentDump.h"

#include "rtf/RtfFormat.h"

#include <QStringList>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>

namespace {

void addLength(QStringList &words, const char *name, int twips)
{
    if (twips != 0)
        words.append(QStringLiteral("%1=%2").arg(QLatin1StringView(name)).arg(twips));
}

QString alignmentName(Qt::Alignment alignment)
{
    switch (alignment.toInt()) {
    case Qt::AlignRight:
        return QStringLiteral("right");
    case Qt::AlignHCenter:
        return QStringLiteral("centre");
    case Qt::AlignJustify:
        return QStringLiteral("justify");
    default:
        return QStringLiteral("left");
    }
}

QString describe(const ParagraphFormat &format)
{
    QStringList words{QStringLiteral("paragraph"), alignmentName(format.alignment)};
    addLength(words, "left", format.left);
    addLength(words, "first", format.firstLine);
    addLength(words, "right", format.right);
    addLength(words, "before", format.spaceBefore);
    addLength(words, "after", format.spaceAfter);
    addLength(words, "bulletindent", format.bulletIndent);
    if (format.bullet)
        words.append(QStringLiteral("bullet"));
    for (const TabStop &tab : format.tabs)
        words.append(QStringLiteral("tab%1=%2").arg(int(tab.type)).arg(tab.position));
    return words.join(u' ');
}

QString describe(const CharacterFormat &format)
{
    QStringList words{format.family, QStringLiteral("%1pt").arg(format.halfPoints / 2.0)};
    addLength(words, "charset", format.charset);
    addLength(words, "offset", format.offset);
    if (format.script != Script::Baseline)
        words.append(format.script == Script::Superscript ? QStringLiteral("super")
                                                          : QStringLiteral("sub"));
    static const char *const names[] = {"bold", "italic",        "underline", "strike",
                                        "caps", "smallcapitals", "hidden",    "deleted"};
    for (int bit = 0; bit < 8; ++bit) {
        if (format.styles.toInt() & (1 << bit))
            words.append(QLatin1StringView(names[bit]));
    }
    if (format.colour)
        words.append(u'#' +
                     QString::number(*format.colour & 0xFFFFFFU, 16).rightJustified(6, u'0'));
    return words.join(u' ');
}

QString quoted(QStringView text)
{
    QString result(u'"');
    for (const QChar c : text) {
        const bool shown = c.isPrint() && c != u'"' && !(c.isSpace() && c != u' ') &&
                           c.category() != QChar::Other_PrivateUse && !c.isSurrogate();
        result += shown ? QString(c) : QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QChar(u'0'));
    }
    return result + u'"';
}

} // namespace

QString dump(const QTextDocument &document)
{
    QString result;
    const QFont defaults = document.defaultFont();
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const ParagraphFormat paragraph = ParagraphFormat::of(block.blockFormat());
        result += describe(paragraph);
        if (paragraph.bullet != (block.textList() != nullptr))
            result += QStringLiteral(" LIST?");
        QString current;
        QString text;
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QString format =
                describe(CharacterFormat::of(it.fragment().charFormat(), defaults));
            if (format != current && !text.isEmpty())
                result +=
                    QStringLiteral("\n  [%1] %2").arg(current, quoted(std::exchange(text, {})));
            current = format;
            text += it.fragment().text();
        }
        if (!text.isEmpty())
            result += QStringLiteral("\n  [%1] %2").arg(current, quoted(text));
        const QString mark = describe(CharacterFormat::of(block.charFormat(), defaults));
        if (mark != current)
            result += QStringLiteral("\n  [%1]").arg(mark);
        result += u'\n';
    }
    return result;
}
