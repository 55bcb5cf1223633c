#include "editor/FilterNumericKey.h"
#include "editor/StandardUnit.h"

#include <QTest>

class tst_FilterNumericKey : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keys_data();
    void keys();
    void units();
};

void tst_FilterNumericKey::keys_data()
{
    QTest::addColumn<int>("allowed");
    QTest::addColumn<QString>("kept");

    const int digits = int(NumericKey::Digits);
    const int decimal = int(NumericKey::Decimal);
    const int sign = int(NumericKey::Sign);
    QTest::newRow("digits") << digits << QStringLiteral("0123456789");
    QTest::newRow("decimal") << decimal << QStringLiteral(",.0123456789");
    QTest::newRow("sign") << sign << QStringLiteral("+-0123456789");
    QTest::newRow("both") << (decimal | sign) << QStringLiteral("+,-.0123456789");
}

void tst_FilterNumericKey::keys()
{
    QFETCH(int, allowed);
    QFETCH(QString, kept);
    for (int code = 0; code <= 0xffff; ++code) {
        const auto key = static_cast<char16_t>(code);
        const bool isKept = code < 32 || kept.contains(QChar(key));
        QCOMPARE(int(FilterNumericKey(key, NumericKeys::fromInt(allowed))), isKept ? code : 0);
    }
}

void tst_FilterNumericKey::units()
{
    QCOMPARE(twipsPerUnit(u"mm"), 56.7);
    QCOMPARE(twipsPerUnit(u"cm"), 567.0);
    QCOMPARE(twipsPerUnit(u"in"), 1440.0);
    QCOMPARE(twipsPerUnit(u"pt"), 20.0);
    QCOMPARE(twipsPerUnit(u"px"), std::nullopt);
    QCOMPARE(twipsPerUnit(u"MM"), std::nullopt);
    QCOMPARE(twipsPerUnit(u""), std::nullopt);
}

QTEST_APPLESS_MAIN(tst_FilterNumericKey)
#include "tst_filternumerickey.moc"
