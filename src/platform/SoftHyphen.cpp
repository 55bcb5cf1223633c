#include "platform/SoftHyphen.h"

#include <QAbstractTextDocumentLayout>
#include <QGlyphRun>
#include <QPainter>
#include <QRawFont>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextObjectInterface>
#include <optional>

namespace {

/// How a font shows U+00AD: with its own glyph, or with its hyphen where it has none.
struct Shape
{
    QRawFont font;
    quint32 glyph = 0;
    QSizeF size; ///< above the baseline
};

Shape shapeIn(const QFont &font)
{
    Shape shape;
    shape.font = QRawFont::fromFont(font);
    const QChar shown = shape.font.supportsCharacter(softHyphen) ? softHyphen : QChar(u'-');
    shape.glyph = shape.font.glyphIndexesForString(shown).value(0);
    const QPointF advance = shape.font.advancesForGlyphIndexes({shape.glyph}).value(0);
    shape.size = {advance.x(), shape.font.ascent()};
    return shape;
}

/// Measures and draws one U+00AD in the font of its place.
class SoftHyphenObject final : public QObject, public QTextObjectInterface
{
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    using QObject::QObject;

    QSizeF intrinsicSize(QTextDocument *document, int position, const QTextFormat &format) override;
    void drawObject(QPainter *painter, const QRectF &place, QTextDocument *document, int position,
                    const QTextFormat &format) override;

private:
    const Shape &shape(const QTextDocument &document, const QTextFormat &format);

    QFont font_;
    std::optional<Shape> shape_; ///< in font_: neighbours mostly have the same font
};

const Shape &SoftHyphenObject::shape(const QTextDocument &document, const QTextFormat &format)
{
    QFont font = format.toCharFormat().font().resolve(document.defaultFont());
    if (QPaintDevice *device = document.documentLayout()->paintDevice())
        font = QFont(font, device);
    if (!shape_ || font != font_) {
        font_ = font;
        shape_ = shapeIn(font);
    }
    return *shape_;
}

QSizeF SoftHyphenObject::intrinsicSize(QTextDocument *document, int /*position*/,
                                       const QTextFormat &format)
{
    return shape(*document, format).size;
}

void SoftHyphenObject::drawObject(QPainter *painter, const QRectF &place, QTextDocument *document,
                                  int /*position*/, const QTextFormat &format)
{
    const Shape &shown = shape(*document, format);
    QGlyphRun run;
    run.setRawFont(shown.font);
    run.setGlyphIndexes({shown.glyph});
    // Layout shifts characters with a baseline offset, a percentage of their height, but no
    // objects.
    const double height = shown.font.ascent() + shown.font.descent();
    const double rise = format.toCharFormat().baselineOffset() * height / 100;
    run.setPositions({QPointF(0, -rise)});
    painter->save();
    if (format.hasProperty(QTextFormat::ForegroundBrush))
        painter->setPen(format.foreground().color());
    painter->drawGlyphRun(place.bottomLeft(), run);
    painter->restore();
}

} // namespace

void showSoftHyphens(QTextDocument &document)
{
    QAbstractTextDocumentLayout *layout = document.documentLayout();
    layout->registerHandler(QTextFormat::NoObject, new SoftHyphenObject(layout));
}

void holdSoftHyphens(QTextDocument &document)
{
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const QString text = block.text();
        for (qsizetype i = 0; i < text.size(); ++i) {
            if (text[i] != softHyphen && text[i] != shownSoftHyphen)
                continue;
            cursor.setPosition(block.position() + int(i));
            cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
            const QChar held =
                text[i] == softHyphen ? shownSoftHyphen : QChar(QChar::ReplacementCharacter);
            cursor.insertText(held, cursor.charFormat());
        }
    }
    cursor.endEditBlock();
}

#include "SoftHyphen.moc"
