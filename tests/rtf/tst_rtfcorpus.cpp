#include "rtf/DocumentDump.h"
#include "rtf/RtfReader.h"
#include "rtf/RtfWriter.h"

#include <QDir>
#include <QFile>
#include <QTest>
#include <QTextDocument>

/// Files as word processors write them, each with what they must read as. With QUILLON_ACCEPT=1 in
/// the environment the references are rewritten instead of compared.
class tst_RtfCorpus : public QObject
{
    Q_OBJECT

private:
    static QDir folder(const QString &name)
    {
        return QDir(QStringLiteral(QUILLON_SOURCE_FOLDER "/tests/rtf/") + name);
    }

    static QByteArray bytesOf(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    static void addInputs()
    {
        QTest::addColumn<QByteArray>("rtf");
        const QDir inputs = folder(QStringLiteral("input"));
        for (const QString &name : inputs.entryList({QStringLiteral("*.rtf")}, QDir::Files))
            QTest::newRow(qPrintable(name.chopped(4))) << bytesOf(inputs.filePath(name));
    }

private Q_SLOTS:
    void readsAsReference_data() { addInputs(); }

    void readsAsReference()
    {
        QFETCH(const QByteArray, rtf);
        QTextDocument document;
        QVERIFY(!readRtf(rtf, document));
        const QByteArray read = dump(document).toUtf8();
        const QString name = QLatin1StringView(QTest::currentDataTag()) + QStringLiteral(".txt");
        QFile reference(folder(QStringLiteral("reference")).filePath(name));
        if (qEnvironmentVariableIsSet("QUILLON_ACCEPT")) {
            QVERIFY(reference.open(QIODevice::WriteOnly));
            QCOMPARE(reference.write(read), read.size());
            return;
        }
        QVERIFY(reference.open(QIODevice::ReadOnly));
        const QList<QByteArray> expected = reference.readAll().split('\n');
        const QList<QByteArray> actual = read.split('\n');
        for (qsizetype line = 0; line < std::max(expected.size(), actual.size()); ++line)
            QCOMPARE(actual.value(line), expected.value(line));
    }

    void survivesWriting_data() { addInputs(); }

    void survivesWriting()
    {
        QFETCH(const QByteArray, rtf);
        QTextDocument document;
        QVERIFY(!readRtf(rtf, document));
        const QByteArray written = writeRtf(document);
        QVERIFY(written.endsWith('}'));
        QVERIFY(std::all_of(written.begin(), written.end(), [](char c) { return c > 0; }));
        QTextDocument again;
        QVERIFY(!readRtf(written, again));
        QCOMPARE(dump(again), dump(document));
        QCOMPARE(writeRtf(again), written);
    }

    void everyPrefixReads_data() { addInputs(); }

    void everyPrefixReads()
    {
        QFETCH(const QByteArray, rtf);
        QVERIFY(rtf.size() <= 4096);
        QTextDocument document;
        for (qsizetype length = 0; length < rtf.size(); ++length) {
            const QByteArray prefix = rtf.first(length);
            const auto error = readRtf(prefix, document);
            QCOMPARE(error.has_value(), !looksLikeRtf(prefix));
            if (!error) {
                QTextDocument again;
                QVERIFY(!readRtf(writeRtf(document), again));
                QCOMPARE(dump(again), dump(document));
            }
        }
    }
};

QTEST_MAIN(tst_RtfCorpus)
#include "tst_rtfcorpus.moc"
