#include "help/TarArchive.h"

#include "TarBytes.h"

#include <QTest>

class tst_TarArchive : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void filesInTheirOrder()
    {
        const auto files = readTar(tarBytes({{"b", "two"}, {"a/c", QByteArray(600, 'x')}}));
        QVERIFY(files);
        QCOMPARE(files->size(), std::size_t(2));
        QCOMPARE(files->at(0).name, QStringLiteral("b"));
        QCOMPARE(files->at(0).content, QByteArray("two"));
        QCOMPARE(files->at(1).name, QStringLiteral("a/c"));
        QCOMPARE(files->at(1).content, QByteArray(600, 'x'));
    }

    void foldersArePassedOver()
    {
        const auto files = readTar(tarHeader("folder/", 0, '5') + tarBytes({{"folder/a", "1"}}));
        QVERIFY(files);
        QCOMPARE(files->size(), std::size_t(1));
    }

    void refusesWhatIsNoArchive_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("text") << QByteArray(2000, 'x');
        QTest::newRow("no end") << tarEntry("a", "1");
        QTest::newRow("size beyond the end") << tarHeader("a", 5000) + QByteArray(1024, '\0');
        QTest::newRow("size that no number holds")
            << tarHeader("a", 0).replace(124, 12, "777777777777") + QByteArray(1024, '\0');
        QTest::newRow("size that is no number")
            << tarHeader("a", 0).replace(124, 12, "-00000000001") + QByteArray(1024, '\0');
    }

    void refusesWhatIsNoArchive()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY(!readTar(bytes));
    }

    void noticesCutFiles()
    {
        const QByteArray whole = tarBytes({{"a", "1"}, {"b", QByteArray(700, 'x')}});
        const qsizetype lastHeaderEnds = whole.size() - 512;
        for (qsizetype length = 0; length < lastHeaderEnds; ++length)
            QVERIFY2(!readTar(whole.first(length)), qPrintable(QString::number(length)));
    }

    void noticesDamagedHeaders()
    {
        const QByteArray whole = tarBytes({{"a", "1"}});
        for (qsizetype i = 0; i < 512; ++i) {
            QByteArray damaged = whole;
            damaged[i] = char(damaged[i] ^ 0x10);
            const bool isChecksum = i >= 148 && i < 156; // blanks there count for nothing
            QVERIFY2(isChecksum || !readTar(damaged), qPrintable(QString::number(i)));
        }
    }
};

QTEST_GUILESS_MAIN(tst_TarArchive)
#include "tst_tararchive.moc"
