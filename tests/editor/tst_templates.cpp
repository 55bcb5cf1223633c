#include "platform/RichTextBox.h"

#include <QTest>

/// The templates that a new document starts with.
class tst_Templates : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void areEmptyDocuments_data();
    void areEmptyDocuments();
};

void tst_Templates::areEmptyDocuments_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("font");
    QTest::addColumn<double>("size");
    QTest::newRow("Source") << QStringLiteral("Source.tpl") << QStringLiteral("Liberation Serif")
                            << 12.0;
    QTest::newRow("Target") << QStringLiteral("Target.tpl") << QStringLiteral("Tengwar Quillon")
                            << 20.0;
}

void tst_Templates::areEmptyDocuments()
{
    QFETCH(const QString, name);
    QFETCH(const QString, font);
    QFETCH(const double, size);
    RichTextBox box;
    box.setText(QStringLiteral("old text"));
    box.LoadFile(QStringLiteral(QUILLON_PROGRAM_FOLDER "/") + name, FileType::RichText);
    QCOMPARE(box.Text(), QString());
    QTest::keyClicks(&box, QStringLiteral("ab"));
    box.setSelStart(0);
    box.setSelLength(2);
    QCOMPARE(box.SelFormat().fontName.value(), font);
    QCOMPARE(box.SelFormat().fontSize.value(), size);
    QCOMPARE(box.SelFormat().alignment.value(), Alignment::Left);
    QCOMPARE(box.SelFormat().indent.value(), 0);
}

QTEST_MAIN(tst_Templates)
#include "tst_templates.moc"
