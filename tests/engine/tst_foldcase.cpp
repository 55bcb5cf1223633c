#include "engine/FoldCase.h"

#include <QTest>

class tst_FoldCase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fold_data();
    void fold();
    void keepsTheNumberOfCharacters();
};

void tst_FoldCase::fold_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("caseMode");
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("folded");
    const QLocale english(QLocale::English);
    const QLocale turkish(QLocale::Turkish);
    QTest::newRow("lower") << u"The TE"_qs << 0 << english << u"the te"_qs;
    QTest::newRow("as it stands") << u"The TE"_qs << 1 << english << u"The TE"_qs;
    QTest::newRow("other numbers") << u"The TE"_qs << 2 << english << QString();
    QTest::newRow("negative number") << u"The TE"_qs << -1 << english << QString();
    QTest::newRow("accents") << u"ÉÑØŠŸŽŒ"_qs << 0 << english << u"éñøšÿžœ"_qs;
    QTest::newRow("dotless i lies outside the code page") << u"SIR"_qs << 0 << turkish << u"sir"_qs;
    QTest::newRow("dotted I is outside and stays") << u"İ"_qs << 0 << turkish << u"İ"_qs;
    QTest::newRow("kelvin sign is outside and stays")
        << u"\u212A"_qs << 0 << english << u"\u212A"_qs;
    QTest::newRow("no capital") << u"ß×"_qs << 0 << english << u"ß×"_qs;
}

void tst_FoldCase::fold()
{
    QFETCH(QString, text);
    QFETCH(int, caseMode);
    QFETCH(QLocale, locale);
    QTEST(FoldCase(text, static_cast<qint16>(caseMode), locale), "folded");
}

void tst_FoldCase::keepsTheNumberOfCharacters()
{
    QString all;
    for (int unit = 0; unit <= 0xFFFF; ++unit)
        all += QChar(unit);
    for (const QLocale::Language language :
         {QLocale::English, QLocale::Turkish, QLocale::Lithuanian})
        QCOMPARE(FoldCase(all, 0, QLocale(language)).size(), all.size());
}

QTEST_APPLESS_MAIN(tst_FoldCase)
#include "tst_foldcase.moc"
