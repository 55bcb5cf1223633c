#include "engine/LoadMode.h"
#include "engine/source/PackMode.h"
#include "engine/source/UnpackMode.h"

#include <QDir>
#include <QRandomGenerator>
#include <QTest>

/// A mode file unpacks to a source that packs to the same bytes, whatever the file holds.
class tst_UnpackMode : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void text_data();
    void text();
    void roundTrip_data();
    void roundTrip();
    void randomFiles();
    void ownModes();
};

namespace {

QByteArray record(const char *text, char padding = ' ')
{
    return QByteArray(text).leftJustified(RuleRecordLength, padding);
}

/// A record without any order.
QByteArray randomBytes(QRandomGenerator &random)
{
    QByteArray bytes;
    while (bytes.size() < RuleRecordLength)
        bytes += char(random.bounded(256));
    return bytes;
}

/// A rule of few different texts, so that some repeat or shadow each other, with either padding.
QByteArray randomRule(QRandomGenerator &random)
{
    static const QByteArrayList texts = {"", "a", "b", "ab", "\r", " ", "\"", "\\", "\xAD", "\n"};
    QByteArray rule;
    for (int field = 0; field < 5; ++field)
        rule += texts.at(random.bounded(int(texts.size()))) + '\t';
    return record(rule.constData(), random.bounded(3) == 0 ? '\0' : ' ');
}

/// Packs the unpacked bytes again; a failure shows where it went wrong.
void verifyRoundTrip(const QByteArray &bytes)
{
    const QString source = unpackMode(bytes);
    const PackedMode packed = packMode(source);
    for (const SourceProblem &problem : packed.problems)
        QFAIL(qPrintable(
            QStringLiteral("line %1: %2\n%3").arg(problem.line).arg(problem.message, source)));
    QCOMPARE(packed.bytes.toHex(' '), bytes.toHex(' '));
}

} // namespace

void tst_UnpackMode::text_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("source");
    const QByteArray header = record("Test\t0");
    QTest::newRow("header only") << header << QStringLiteral("mode \"Test\"\ncase 0\n\n");
    QTest::newRow("odd header") << QByteArray("no tab") << QStringLiteral("header \"no tab\"\n\n");
    QTest::newRow("rules") << header + record("th\t3\t\t\t\t") + record("e\tR\t\r\tx\tx\t")
                           << QStringLiteral(
                                  "mode \"Test\"\ncase 0\n\n\"th\" -> \"3\"\n"
                                  "\"e\" after \"x\" before end -> \"R\" leaving \"x\"\n");
    QTest::newRow("zeros") << header + record("th\t3\t\t\t\t", '\0') + QByteArray(72, '\0')
                           << QStringLiteral("mode \"Test\"\ncase 0\npadding zeros\n\n"
                                             "\"th\" -> \"3\"\nunused 2\n");
    QTest::newRow("refused rules are raw")
        << header + record("t\t3\t\t\t\t") + record("t\t4\t\t\t\t")
        << QStringLiteral("mode \"Test\"\ncase 0\n\n\"t\" -> \"3\"\n"
                          "raw \"t\\x094\\x09\\x09\\x09\\x09                             \"\n");
    QTest::newRow("a text behind the fields stays")
        << header + record("t\t3\t\t\t\tnote")
        << QStringLiteral("mode \"Test\"\ncase 0\n\n"
                          "raw \"t\\x093\\x09\\x09\\x09\\x09note                         \"\n");
    QTest::newRow("a cut record stays")
        << header + QByteArray("t\t3")
        << QStringLiteral("mode \"Test\"\ncase 0\n\nraw \"t\\x093\"\n");
}

void tst_UnpackMode::text()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, source);
    QCOMPARE(unpackMode(bytes), source);
    verifyRoundTrip(bytes);
}

void tst_UnpackMode::roundTrip_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray header = record("Test\t0");
    QTest::newRow("empty file") << QByteArray();
    QTest::newRow("short header") << QByteArray("Te");
    QTest::newRow("number with a sign") << record("Test\t-1");
    QTest::newRow("number with two digits") << record("Test\t12");
    QTest::newRow("text behind the number") << record("Test\t0 note");
    QTest::newRow("quotes and escapes") << record("\"\\x41\"\t0") + record("\"\\\t\"\\\t\t\t\"\t");
    QTest::newRow("words of the language")
        << header + record("after\tx\t\t\t\t") + record("->\tx\t\t\t\t") + record("#\tx\t\t\t\t");
    QTest::newRow("a boundary with more behind it") << header + record("a\tx\t\rb\t\rc\t\t");
    QTest::newRow("too few TABs") << header + record("abc\tx\t");
    QTest::newRow("line ends") << header + record("\r\n\t\n\t\t\t\t");
    QTest::newRow("blanks as records") << header + record("") + record("");
}

void tst_UnpackMode::roundTrip()
{
    QFETCH(const QByteArray, bytes);
    verifyRoundTrip(bytes);
}

void tst_UnpackMode::randomFiles()
{
    constexpr int files = 2000;
    constexpr int mostRecords = 12;
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    for (int i = 0; i < files; ++i) {
        QByteArray bytes = record("Test\t0");
        for (int records = random.bounded(mostRecords); records > 0; --records)
            bytes += random.bounded(3) == 0 ? randomBytes(random) : randomRule(random);
        bytes.chop(random.bounded(4) == 0 ? random.bounded(int(bytes.size())) : 0);
        verifyRoundTrip(bytes);
        if (QTest::currentTestFailed())
            return;
    }
}

void tst_UnpackMode::ownModes()
{
    const QDir folder(QStringLiteral(QUILLON_PROGRAM_FOLDER "/Modes"));
    const QStringList names = folder.entryList({QStringLiteral("*.mod")}, QDir::Files);
    QVERIFY(!names.isEmpty());
    for (const QString &name : names) {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        QVERIFY(!unpackMode(bytes).contains(QStringLiteral("raw")));
        verifyRoundTrip(bytes);
    }
}

QTEST_GUILESS_MAIN(tst_UnpackMode)
#include "tst_unpackmode.moc"
