#include "platform/SoftHyphen.h"

#include <QAbstractTextDocumentLayout>
#include <QGlyphRun>
#include <QPainter>
#include <QRawFont>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextObjectInterface>

namespace {

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
};

QRawFont rawFont(const QTextDocument &document, const QTextFormat &format)
{
    const QFont font = format.toCharFormat().font().resolve(document.defaultFont());
    QPaintDevice *device = document.documentLayout()->paintDevice();
    return QRawFont::fromFont(device != nullptr ? QFont(font, device) : font);
}

/// The font's glyph for U+00AD, or its hyphen where it has none.
quint32 glyph(const QRawFont &font)
{
    const QChar shown = font.supportsCharacter(softHyphen) ? softHyphen : QChar(u'-');
    const QList<quint32> glyphs = font.glyphIndexesForString(shown);
    return glyphs.isEmpty() ? 0 : glyphs.front();
}

QSizeF SoftHyphenObject::intrinsicSize(QTextDocument *document, int /*position*/,
                                       const QTextFormat &format)
{
    const QRawFont font = rawFont(*document, format);
    const QList<QPointF> advances = font.advancesForGlyphIndexes({glyph(font)});
    return {advances.isEmpty() ? 0 : advances.front().x(), font.ascent()};
}

void SoftHyphenObject::drawObject(QPainter *painter, const QRectF &place, QTextDocument *document,
                                  int /*position*/, const QTextFormat &format)
{
    QGlyphRun run;
    run.setRawFont(rawFont(*document, format));
    run.setGlyphIndexes({glyph(run.rawFont())});
    run.setPositions({QPointF(0, 0)});
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
