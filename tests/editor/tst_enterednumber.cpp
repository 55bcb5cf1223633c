#include "editor/EnteredNumber.h"

#include <QTest>

class tst_EnteredNumber : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbers_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("number");
        QTest::newRow("whole") << QStringLiteral("12") << 12.0;
        QTest::newRow("point") << QStringLiteral("1.5") << 1.5;
        QTest::newRow("comma") << QStringLiteral("1,5") << 1.5;
        QTest::newRow("no digit before") << QStringLiteral(",5") << 0.5;
        QTest::newRow("no digit after") << QStringLiteral("5.") << 5.0;
        QTest::newRow("minus") << QStringLiteral("-0,25") << -0.25;
        QTest::newRow("plus") << QStringLiteral("+3") << 3.0;
        QTest::newRow("spaces") << QStringLiteral("  7 ") << 7.0;
        QTest::newRow("zeros before") << QStringLiteral("007") << 7.0;
    }

    void numbers()
    {
        QFETCH(QString, text);
        QFETCH(double, number);
        QCOMPARE(enteredNumber(text), number);
    }

    void others_data()
    {
        QTest::addColumn<QString>("text");
        for (const char *text : {"", " ", "-", ".", ",", "1.2.3", "1,2,3", "1.000,5", "1e3", "0x10",
                                 "inf", "nan", "--1", "1-", "1 2", "mm", "1mm", "1+1"})
            QTest::newRow(text) << QString::fromLatin1(text);
        QTest::newRow("beyond all numbers") << QString(400, u'9');
        QTest::newRow("digits of another script") << QStringLiteral("١٢");
    }

    void others()
    {
        QFETCH(QString, text);
        QVERIFY(!enteredNumber(text));
    }
};

QTEST_APPLESS_MAIN(tst_EnteredNumber)
#include "tst_enterednumber.moc"
