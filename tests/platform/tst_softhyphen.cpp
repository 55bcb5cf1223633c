#include "platform/RichTextBox.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QRawFont>
#include <QTest>
#include <QTextBlock>

namespace {

constexpr QSize imageSize(300, 80);

/// The document as it would be painted, black on white.
QImage picture(RichTextBox &box)
{
    QImage image(imageSize, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    box.document()->drawContents(&painter);
    return image;
}

/// The highest row in which anything is drawn between two horizontal places of the first line, in
/// pixels; -1 if nothing is.
int highestInk(const QImage &image, double from, double to)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = int(from) + 1; x < int(to); ++x) {
            if (qGray(image.pixel(x, y)) < 128)
                return y;
        }
    }
    return -1;
}

bool hasInk(const QImage &image, double from, double to)
{
    return highestInk(image, from, to) >= 0;
}

} // namespace

class tst_SoftHyphen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void takesItsGlyphsRoom();
    void isDrawn();
    void isDrawnInItsColour();
    void followsItsFont();
    void risesWithItsOffset();
    void breaksNoLineByItself();

private:
    /// The horizontal place before the character of the first line, in the document's pixels.
    [[nodiscard]] double edge(int character) const;

    std::unique_ptr<RichTextBox> box_;
};

void tst_SoftHyphen::init()
{
    box_ = std::make_unique<RichTextBox>();
    QFont font = box_->font();
    font.setPointSize(30);
    box_->document()->setDefaultFont(font);
    box_->document()->setTextWidth(imageSize.width());
    box_->setText(u"a\xADz"_qs);
}

double tst_SoftHyphen::edge(int character) const
{
    const QTextBlock block = box_->document()->firstBlock();
    box_->document()->documentLayout()->blockBoundingRect(block);
    const QTextLine line = block.layout()->lineAt(0);
    return block.layout()->position().x() + line.cursorToX(character);
}

void tst_SoftHyphen::takesItsGlyphsRoom()
{
    const QRawFont font = QRawFont::fromFont(box_->document()->defaultFont());
    const quint32 glyph = font.glyphIndexesForString(u"\xAD"_qs).value(0);
    QVERIFY(glyph != 0);
    const double advance = font.advancesForGlyphIndexes({glyph}).value(0).x();
    QVERIFY(advance > 1);
    QVERIFY(std::abs(edge(2) - edge(1) - advance) < 0.1);
}

void tst_SoftHyphen::isDrawn()
{
    QVERIFY(hasInk(picture(*box_), edge(1), edge(2)));
    box_->setText(u"a\xA0z"_qs);
    QVERIFY(edge(2) - edge(1) > 1);
    QVERIFY(!hasInk(picture(*box_), edge(1), edge(2)));
}

void tst_SoftHyphen::isDrawnInItsColour()
{
    box_->selectAll();
    box_->setTextColor(Qt::white);
    box_->setSelStart(0);
    QVERIFY(!hasInk(picture(*box_), edge(0), edge(3)));
}

void tst_SoftHyphen::followsItsFont()
{
    const double before = edge(2) - edge(1);
    box_->setSelStart(1);
    box_->setSelLength(1);
    box_->setFontPointSize(60);
    QCOMPARE(box_->Text(), u"a\xADz"_qs);
    QVERIFY(std::abs((edge(2) - edge(1)) / before - 2) < 0.1);
}

void tst_SoftHyphen::risesWithItsOffset()
{
    box_->setText(u"A-\xAD"_qs);
    box_->setSelStart(1);
    box_->setSelLength(2);
    box_->setSelCharOffset(200);
    const QImage raised = picture(*box_);
    const int hyphen = highestInk(raised, edge(1), edge(2));
    QVERIFY(hyphen >= 0);
    QVERIFY(std::abs(highestInk(raised, edge(2), edge(3)) - hyphen) <= 1);
}

void tst_SoftHyphen::breaksNoLineByItself()
{
    box_->setText(u"a\xADz\xAD"_qs);
    QCOMPARE(box_->document()->firstBlock().layout()->lineCount(), 1);
}

QTEST_MAIN(tst_SoftHyphen)
#include "tst_softhyphen.moc"
