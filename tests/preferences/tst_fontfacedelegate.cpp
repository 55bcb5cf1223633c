#include "preferences/FontFaceDelegate.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QElapsedTimer>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QTest>

class tst_FontFaceDelegate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aThousandFontsAreListedAtOnce()
    {
        QStringList names;
        for (int i = 0; i < 1'000; ++i)
            names += QStringLiteral("Font %1").arg(i);
        QElapsedTimer clock;
        clock.start();
        QComboBox fonts;
        FontFaceDelegate::drawEntries(fonts);
        fonts.addItems(names);
        fonts.show();
        fonts.showPopup();
        QTRY_VERIFY(fonts.view()->isVisible());
        QVERIFY(!fonts.view()->grab().isNull());
        QTest::keyClick(fonts.view(), Qt::Key_End);
        QVERIFY(!fonts.view()->grab().isNull());
        QVERIFY2(clock.elapsed() < 3'000, qPrintable(QString::number(clock.elapsed())));
        fonts.hidePopup();
    }

    void rowsAreAlike()
    {
        QComboBox fonts;
        fonts.addItems({QStringLiteral("DejaVu Sans"), QStringLiteral("Tengwar Quillon")});
        FontFaceDelegate::drawEntries(fonts);
        const int height = fonts.view()->sizeHintForRow(0);
        QCOMPARE(fonts.view()->sizeHintForRow(1), height);
        QVERIFY(height > fonts.fontMetrics().height());
    }

    void aFontOfOtherSignsIsListedReadably_data()
    {
        QTest::addColumn<QString>("font");
        QTest::addColumn<bool>("inItsFace");
        QTest::newRow("letters") << QStringLiteral("DejaVu Serif") << true;
        QTest::newRow("signs") << QStringLiteral("Old TENGWAR") << false;
    }

    void aFontOfOtherSignsIsListedReadably()
    {
        QFETCH(QString, font);
        QComboBox fonts;
        fonts.addItem(font);
        FontFaceDelegate::drawEntries(fonts);
        const auto nameDrawnBy = [&fonts](QAbstractItemDelegate &delegate) {
            QStyleOptionViewItem row;
            row.initFrom(&fonts);
            row.rect = QRect(0, 0, 600, 30);
            row.state = QStyle::State_Enabled;
            QImage image(row.rect.size(), QImage::Format_RGB32);
            image.fill(Qt::white);
            QPainter painter(&image);
            delegate.paint(&painter, row, fonts.model()->index(0, 0));
            return image.copy(0, 0, row.fontMetrics.horizontalAdvance(fonts.itemText(0)), 30);
        };
        QStyledItemDelegate plain;
        const bool isPlain = nameDrawnBy(*fonts.itemDelegate()) == nameDrawnBy(plain);
        QTEST(!isPlain, "inItsFace");
    }
};

QTEST_MAIN(tst_FontFaceDelegate)
#include "tst_fontfacedelegate.moc"
