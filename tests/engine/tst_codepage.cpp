#include "engine/CodePage.h"

#include <QTest>

class tst_CodePage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyByteComesBack();
    void characters_data();
    void characters();
    void foreignCharactersHaveNoByte();
    void textOutsideIsRefused();
};

void tst_CodePage::everyByteComesBack()
{
    for (int byte = 0; byte < 256; ++byte)
        QCOMPARE(codePageByte(codePageCharacter(static_cast<uchar>(byte))),
                 static_cast<uchar>(byte));
}

void tst_CodePage::characters_data()
{
    QTest::addColumn<int>("byte");
    QTest::addColumn<char16_t>("character");
    QTest::newRow("letter") << 0x41 << u'A';
    QTest::newRow("euro") << 0x80 << u'€';
    QTest::newRow("first unassigned") << 0x81 << u'\x81';
    QTest::newRow("last unassigned") << 0x9D << u'\x9D';
    QTest::newRow("trade mark") << 0x99 << u'™';
    QTest::newRow("Y diaeresis") << 0x9F << u'Ÿ';
    QTest::newRow("no-break space") << 0xA0 << u'\xA0';
    QTest::newRow("soft hyphen") << 0xAD << u'\xAD';
    QTest::newRow("y diaeresis") << 0xFF << u'ÿ';
}

void tst_CodePage::characters()
{
    QFETCH(int, byte);
    QFETCH(char16_t, character);
    QCOMPARE(codePageCharacter(static_cast<uchar>(byte)), character);
}

void tst_CodePage::foreignCharactersHaveNoByte()
{
    int assigned = 0;
    for (int character = 0; character <= 0xFFFF; ++character)
        assigned += codePageByte(static_cast<char16_t>(character)).has_value();
    QCOMPARE(assigned, 256);
    QVERIFY(!codePageByte(u'\x80'));   // its number is taken by the euro
    QVERIFY(!codePageByte(u'\uFF21')); // a wide A that a system conversion would make an A
}

void tst_CodePage::textOutsideIsRefused()
{
    QCOMPARE(toCodePage(u"A€"), QByteArray("A\x80"));
    QVERIFY(!toCodePage(u"ŷ"));
    QCOMPARE(fromCodePage("A\x80"), QStringLiteral("A€"));
}

QTEST_APPLESS_MAIN(tst_CodePage)
#include "tst_codepage.moc"
