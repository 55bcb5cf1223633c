#include "rtf/RtfFormat.h"

#include <QBrush>
#include <QHashFunctions>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>
#include <algorithm>
#include <cmath>

namespace {

enum Property {
    CharacterOffset = QTextFormat::UserProperty + 1,
    FontCharset,
    CharsetFamily, ///< the font that FontCharset belongs to: another font makes it void
    HiddenText,
    DeletedText,
    LeftIndent,
    FirstLineIndent,
    RightIndent,
    SpaceBefore,
    SpaceAfter,
    BulletIndent,
    Bullet,
};

/// A line's height to its font's size: the share of Qt's baseline offset, a percentage of the
/// height, that our offset makes must be known without a font.
constexpr double lineHeightOfSize = 1.2;
constexpr int twipsPerHalfPoint = 10;
constexpr CharacterStyles noStyles;

double pixels(int twips)
{
    return static_cast<double>(twips) / twipsPerPixel;
}

int twips(double pixels)
{
    return static_cast<int>(std::lround(pixels * twipsPerPixel));
}

void setOrClear(QTextFormat &format, int property, const QVariant &value)
{
    if (value.toBool())
        format.setProperty(property, value);
    else
        format.clearProperty(property);
}

QFont::Capitalization capitalization(CharacterStyles styles)
{
    if (styles & CharacterStyle::AllCapitals)
        return QFont::AllUppercase;
    return styles & CharacterStyle::SmallCapitals ? QFont::SmallCaps : QFont::MixedCase;
}

CharacterStyles stylesOf(const QTextCharFormat &format)
{
    const auto when = [](bool set, CharacterStyle style) {
        return set ? CharacterStyles(style) : noStyles;
    };
    return when(format.fontWeight() >= QFont::DemiBold, CharacterStyle::Bold) |
           when(format.fontItalic(), CharacterStyle::Italic) |
           when(format.fontUnderline(), CharacterStyle::Underline) |
           when(format.fontStrikeOut(), CharacterStyle::StrikeOut) |
           when(format.fontCapitalization() == QFont::AllUppercase, CharacterStyle::AllCapitals) |
           when(format.fontCapitalization() == QFont::SmallCaps, CharacterStyle::SmallCapitals) |
           when(format.boolProperty(HiddenText), CharacterStyle::Hidden) |
           when(format.boolProperty(DeletedText), CharacterStyle::Deleted);
}

Script scriptOf(const QTextCharFormat &format)
{
    switch (format.verticalAlignment()) {
    case QTextCharFormat::AlignSuperScript:
        return Script::Superscript;
    case QTextCharFormat::AlignSubScript:
        return Script::Subscript;
    default:
        return Script::Baseline;
    }
}

QTextCharFormat::VerticalAlignment alignmentOf(Script script)
{
    switch (script) {
    case Script::Superscript:
        return QTextCharFormat::AlignSuperScript;
    case Script::Subscript:
        return QTextCharFormat::AlignSubScript;
    case Script::Baseline:
        break;
    }
    return QTextCharFormat::AlignNormal;
}

} // namespace

CharacterFormat CharacterFormat::of(const QTextCharFormat &format, const QFont &defaults)
{
    CharacterFormat result;
    const QStringList families = format.fontFamilies().toStringList();
    result.family = families.isEmpty() ? defaults.family() : families.constFirst();
    if (format.stringProperty(CharsetFamily) == result.family)
        result.charset = format.intProperty(FontCharset);
    double size = format.fontPointSize();
    if (size <= 0)
        size = defaults.pointSizeF() > 0 ? defaults.pointSizeF() : 12;
    result.halfPoints = std::max(1, static_cast<int>(std::lround(2 * size)));
    result.offset = format.intProperty(CharacterOffset);
    result.script = scriptOf(format);
    result.styles = stylesOf(format);
    if (format.foreground().style() != Qt::NoBrush)
        result.colour = format.foreground().color().rgb() | 0xFF000000U;
    return result;
}

void CharacterFormat::applyTo(QTextCharFormat &format) const
{
    format.setFontFamilies({family});
    setOrClear(format, FontCharset, charset);
    setOrClear(format, CharsetFamily, charset != 0 ? family : QString());
    format.setFontPointSize(halfPoints / 2.0);
    setOrClear(format, CharacterOffset, offset);
    setOrClear(format, QTextFormat::TextBaselineOffset,
               100.0 * offset / (halfPoints * twipsPerHalfPoint * lineHeightOfSize));
    format.setVerticalAlignment(alignmentOf(script));
    format.setFontWeight(styles & CharacterStyle::Bold ? QFont::Bold : QFont::Normal);
    format.setFontItalic(styles.testFlag(CharacterStyle::Italic));
    format.setFontUnderline(styles.testFlag(CharacterStyle::Underline));
    format.setFontStrikeOut(styles.testFlag(CharacterStyle::StrikeOut));
    format.setFontCapitalization(capitalization(styles));
    setOrClear(format, HiddenText, styles.testFlag(CharacterStyle::Hidden));
    setOrClear(format, DeletedText, styles.testFlag(CharacterStyle::Deleted));
    if (colour)
        format.setForeground(QColor(*colour));
    else
        format.clearForeground();
}

bool CharacterFormat::isSymbolFont() const
{
    constexpr int symbolCharset = 2;
    return charset == symbolCharset && !isTengwarFont(family);
}

size_t qHash(const CharacterFormat &format, size_t seed) noexcept
{
    return qHashMulti(seed, format.family, format.charset, format.halfPoints, format.offset,
                      static_cast<int>(format.script), format.styles.toInt(),
                      format.colour.value_or(0));
}

bool isTengwarFont(const QString &family)
{
    return family.contains(QLatin1StringView("tengwa"), Qt::CaseInsensitive);
}

int ParagraphFormat::textEdge() const
{
    if (!bullet)
        return left;
    constexpr int discRoom = 240; // the disc hangs left of the text and must not leave the page
    return firstLine < 0 ? left : left + firstLine + std::max(bulletIndent, discRoom);
}

ParagraphFormat ParagraphFormat::of(const QTextBlockFormat &format)
{
    ParagraphFormat result;
    result.left = format.intProperty(LeftIndent);
    result.firstLine = format.intProperty(FirstLineIndent);
    result.right = format.intProperty(RightIndent);
    result.spaceBefore = format.intProperty(SpaceBefore);
    result.spaceAfter = format.intProperty(SpaceAfter);
    result.bulletIndent = format.intProperty(BulletIndent);
    result.bullet = format.boolProperty(Bullet);
    result.alignment = format.alignment() & Qt::AlignHorizontal_Mask;
    for (const QTextOption::Tab &tab : format.tabPositions())
        result.tabs.append({twips(tab.position) + result.textEdge(), tab.type});
    return result;
}

void ParagraphFormat::applyTo(QTextBlockFormat &format) const
{
    setOrClear(format, LeftIndent, left);
    setOrClear(format, FirstLineIndent, firstLine);
    setOrClear(format, RightIndent, right);
    setOrClear(format, SpaceBefore, spaceBefore);
    setOrClear(format, SpaceAfter, spaceAfter);
    setOrClear(format, BulletIndent, bulletIndent);
    setOrClear(format, Bullet, bullet);
    format.setAlignment(alignment);
    format.setLeftMargin(pixels(textEdge()));
    format.setTextIndent(bullet ? 0 : pixels(firstLine)); // the disc hangs left of the text
    format.setRightMargin(pixels(right));
    format.setTopMargin(pixels(spaceBefore));
    format.setBottomMargin(pixels(spaceAfter));
    QList<QTextOption::Tab> positions;
    for (const TabStop &tab : tabs)
        positions.append(QTextOption::Tab(pixels(tab.position - textEdge()), tab.type, u'.'));
    if (positions.isEmpty())
        format.clearProperty(QTextFormat::TabPositions);
    else
        format.setTabPositions(positions);
}

QTextList *drawBullet(QTextCursor cursor, QTextList *list)
{
    constexpr int mostItems = 100; // Qt visits them all whenever one comes or goes
    if (list != nullptr && list->count() < mostItems) {
        list->add(cursor.block());
        return list;
    }
    QTextListFormat format;
    format.setStyle(QTextListFormat::ListDisc);
    format.setIndent(0); // the paragraphs bring their own indents
    cursor.clearSelection();
    return cursor.createList(format);
}

void applyParagraphFormat(QTextCursor cursor, const ParagraphFormat &format)
{
    cursor.beginEditBlock();
    const QTextDocument &document = *cursor.document();
    QTextBlock block = document.findBlock(cursor.selectionStart());
    const QTextBlock last = document.findBlock(cursor.selectionEnd());
    for (; block.isValid() && block.position() <= last.position(); block = block.next()) {
        QTextCursor paragraph(block);
        QTextBlockFormat blockFormat = block.blockFormat();
        format.applyTo(blockFormat);
        if (!format.bullet)
            blockFormat.setObjectIndex(-1);
        paragraph.setBlockFormat(blockFormat);
        if (format.bullet && block.textList() == nullptr)
            drawBullet(paragraph, block.previous().textList());
    }
    cursor.endEditBlock();
}

void applyPageBreaks(QTextDocument &copy)
{
    const QString pageBreak(QChar(u'\f'));
    QTextBlockFormat onNewPage;
    onNewPage.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    for (QTextCursor cursor = copy.find(pageBreak); !cursor.isNull();
         cursor = copy.find(pageBreak, cursor)) {
        cursor.removeSelectedText();
        if (cursor.atEnd())
            break;
        if (cursor.atBlockEnd())
            cursor.movePosition(QTextCursor::NextBlock);
        else
            cursor.insertBlock();
        cursor.mergeBlockFormat(onNewPage);
    }
}
