#include "about/frmSplash.h"
#include "support/ProjectVersion.h"

#include <QApplication>
#include <QLabel>
#include <QScopeGuard>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class tst_frmSplash : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsVersionAndCopyright();
    void textStandsAtTheFootOfThePicture_data();
    void textStandsAtTheFootOfThePicture();
    void pictureFillsTheWindow();
};

void tst_frmSplash::tellsVersionAndCopyright()
{
    const frmSplash splash;
    const auto *label = splash.findChild<QLabel *>(u"lblSplash"_s);
    const QString majorMinor = projectVersion().section(u'.', 0, 1);
    QCOMPARE(label->text(), u"Version "_s + majorMinor + u"\r\n"_s + projectCopyright());
    QCOMPARE(label->textFormat(), Qt::PlainText);
    QCOMPARE(splash.windowTitle(), u"Quillon"_s);
}

void tst_frmSplash::textStandsAtTheFootOfThePicture_data()
{
    QTest::addColumn<int>("points"); // of the desktop's font
    QTest::newRow("ordinary") << 9;
    QTest::newRow("large") << 24;
}

void tst_frmSplash::textStandsAtTheFootOfThePicture()
{
    QFETCH(int, points);
    const QFont ordinary = QApplication::font();
    const auto restore = qScopeGuard([&ordinary] { QApplication::setFont(ordinary); });
    QApplication::setFont(QFont(ordinary.family(), points));
    const frmSplash splash;
    const QRect picture = splash.findChild<QLabel *>(u"picSplash"_s)->geometry();
    const auto *label = splash.findChild<QLabel *>(u"lblSplash"_s);
    QVERIFY(picture.contains(label->geometry()));
    QCOMPARE(label->geometry().center().x(), picture.center().x());
    QVERIFY(label->y() > picture.center().y());
    const QSize text = label->fontMetrics().size(0, label->text());
    QVERIFY(text.width() <= label->width() && text.height() <= label->height());
}

void tst_frmSplash::pictureFillsTheWindow()
{
    const frmSplash splash;
    const auto *picture = splash.findChild<QLabel *>(u"picSplash"_s);
    QCOMPARE(picture->geometry(), splash.rect());
    QCOMPARE(picture->pixmap().deviceIndependentSize().toSize(), splash.size());
}

QTEST_MAIN(tst_frmSplash)
#include "tst_frmsplash.moc"
