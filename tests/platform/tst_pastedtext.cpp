#include "platform/PastedText.h"

#include <QTest>

class tst_PastedText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void texts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("pasted");
        const QString two = QStringLiteral("a\r\nb");
        const QString three = QStringLiteral("a\r\n\r\nb");
        QTest::newRow("empty") << QString() << QString();
        QTest::newRow("CR LF") << two << two;
        QTest::newRow("CR") << QStringLiteral("a\rb") << two;
        QTest::newRow("LF") << QStringLiteral("a\nb") << two;
        QTest::newRow("next line") << QStringLiteral("a\u0085b") << two;
        QTest::newRow("line separator") << QStringLiteral("a\u2028b") << two;
        QTest::newRow("paragraph separator") << QStringLiteral("a\u2029b") << two;
        QTest::newRow("LF CR") << QStringLiteral("a\n\rb") << three;
        QTest::newRow("CR CR") << QStringLiteral("a\r\rb") << three;
        QTest::newRow("LF LF") << QStringLiteral("a\n\nb") << three;
        QTest::newRow("CR LF twice") << QStringLiteral("a\r\n\r\nb") << three;
        QTest::newRow("at the ends") << QStringLiteral("\na\n") << QStringLiteral("\r\na\r\n");
        QTest::newRow("tab and breaks")
            << QStringLiteral("a\tb\vc\fd") << QStringLiteral("a\tb\vc\fd");
        QTest::newRow("special letters") << QStringLiteral("\u00a0\u00ad\u007f\u0081\U0001d11e")
                                         << QStringLiteral("\u00a0\u00ad\u007f\u0081\U0001d11e");
    }

    void texts()
    {
        QFETCH(QString, text);
        QTEST(pastedText(text), "pasted");
    }

    void controlCodes()
    {
        for (char16_t code = 0; code < u' '; ++code) {
            const bool isKept = code >= u'\t' && code <= u'\r';
            const QString text = QStringLiteral("a") + QChar(code) + QStringLiteral("b");
            QCOMPARE(pastedText(text) == QStringLiteral("ab"), !isKept);
        }
    }
};

QTEST_APPLESS_MAIN(tst_PastedText)
#include "tst_pastedtext.moc"
