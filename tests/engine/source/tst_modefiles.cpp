#include "engine/FoldCase.h"
#include "engine/LoadMode.h"
#include "engine/RuleColumns.h"
#include "engine/TranscribeText.h"
#include "engine/source/CheckMode.h"
#include "engine/source/GoldenFile.h"
#include "engine/source/PackMode.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QTest>

/// Holds each mode that comes with the program against its corpus of examples.
class tst_ModeFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void examplesAgree_data() { addModes(); }
    void examplesAgree();
    void modeIsFaultless_data() { addModes(); }
    void modeIsFaultless();
    void rulesHaveExamples_data() { addModes(); }
    void rulesHaveExamples();
    void packedFileIsBuilt_data() { addModes(); }
    void packedFileIsBuilt();

private:
    void addModes() const;

    QDir folder_{QStringLiteral(QUILLON_SOURCE_FOLDER "/data/modes")};
    QStringList names_;
};

namespace {

struct LoadedMode
{
    QStringList sourceLines;
    PackedMode packed;
    ModeTable table;
    QList<int> lineOfRule; ///< by the index in the table
};

QByteArray contentOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString joined(const QString &name, const QList<SourceProblem> &problems)
{
    QStringList lines;
    for (const SourceProblem &problem : problems)
        lines.append(QStringLiteral("%1:%2: %3").arg(name).arg(problem.line).arg(problem.message));
    return lines.join(u'\n');
}

LoadedMode load(const QString &fileName)
{
    LoadedMode mode;
    const QString source = QString::fromUtf8(contentOf(fileName));
    mode.sourceLines = source.split(u'\n');
    mode.packed = packMode(source);
    if (!mode.packed.problems.isEmpty()) {
        qWarning().noquote() << joined(fileName, mode.packed.problems);
        return mode;
    }
    QBuffer buffer(&mode.packed.bytes);
    buffer.open(QIODevice::ReadOnly);
    readMode(buffer, fileName, mode.table);
    for (const ModeRecord &record : mode.packed.records) {
        if (ruleOf(record))
            mode.lineOfRule.append(record.place);
    }
    return mode;
}

/// All texts of the corpus, a line each: a line break is as good as the start and end of a text.
QString textsOf(const GoldenFile &golden)
{
    QString texts;
    for (const GoldenLine &line : golden.lines)
        texts += line.text + u'\n';
    return texts;
}

/// The codes of each line of the corpus.
QStringList transcribe(const GoldenFile &golden, const ModeTable &table)
{
    TranscriptionContext context;
    context.UndefinedText = QStringLiteral("?!");
    QString texts = textsOf(golden);
    return TranscribeText(texts, table, context).split(u'\n');
}

/// The rules that the corpus makes use of, by their index in the table.
QSet<int> firedRules(const GoldenFile &golden, const ModeTable &table)
{
    const RuleColumns rules(table);
    const CodedText text(FoldCase(textsOf(golden), table.CaseMode));
    RuleColumns::TagId lastTag = RuleColumns::noTag;
    QSet<int> fired;
    for (qsizetype position = 0; position < text.size();) {
        const Step step = rules.step(text, position, LoneControl::Offered, lastTag);
        if (step.kind == Step::Kind::Rule)
            fired.insert(step.rule);
        position += step.length;
    }
    return fired;
}

} // namespace

void tst_ModeFiles::initTestCase()
{
    names_ = folder_.entryList({QStringLiteral("*.mode")}, QDir::Files);
    QVERIFY(names_.contains(QStringLiteral("English.mode")));
}

void tst_ModeFiles::addModes() const
{
    QTest::addColumn<QString>("name");
    for (const QString &name : names_)
        QTest::newRow(qPrintable(name)) << QFileInfo(name).completeBaseName();
}

void tst_ModeFiles::examplesAgree()
{
    QFETCH(const QString, name);
    const LoadedMode mode = load(folder_.filePath(name + QStringLiteral(".mode")));
    QVERIFY(mode.packed.problems.isEmpty());
    GoldenFile golden;
    const QString goldenName = folder_.filePath(name + QStringLiteral(".golden"));
    QVERIFY2(golden.read(goldenName), qPrintable(goldenName));
    const QStringList codes = transcribe(golden, mode.table);
    int examples = 0;
    QStringList differences;
    for (qsizetype i = 0; i < golden.lines.size(); ++i) {
        GoldenLine &line = golden.lines[i];
        if (line.reason.isEmpty())
            continue;
        ++examples;
        if (codes.at(i) != line.codes)
            differences.append(QStringLiteral("%1\n  expected  %2\n  but got   %3\n  (%4)")
                                   .arg(line.text, line.codes, codes.at(i), line.reason));
        line.codes = codes.at(i);
    }
    QVERIFY(examples > 0);
    if (qEnvironmentVariableIsSet("QUILLON_ACCEPT"))
        QVERIFY(golden.write(goldenName));
    else if (!differences.isEmpty())
        QFAIL(qPrintable(differences.join(u'\n')));
}

void tst_ModeFiles::modeIsFaultless()
{
    constexpr qsizetype mostRules = 1500;
    QFETCH(const QString, name);
    const LoadedMode mode = load(folder_.filePath(name + QStringLiteral(".mode")));
    const ModeReport report = checkMode(mode.packed.bytes);
    QVERIFY2(report.faults.isEmpty(), qPrintable(joined(name, report.faults)));
    QVERIFY(mode.table.ruleCount() > 0);
    QVERIFY2(mode.table.ruleCount() < mostRules,
             qPrintable(QString::number(mode.table.ruleCount())));
}

void tst_ModeFiles::rulesHaveExamples()
{
    QFETCH(const QString, name);
    const LoadedMode mode = load(folder_.filePath(name + QStringLiteral(".mode")));
    GoldenFile golden;
    QVERIFY(golden.read(folder_.filePath(name + QStringLiteral(".golden"))));
    const QSet<int> fired = firedRules(golden, mode.table);
    QSet<int> exercised;
    for (const int rule : fired)
        exercised.insert(mode.lineOfRule.at(rule));
    QSet<int> missing(mode.lineOfRule.begin(), mode.lineOfRule.end());
    missing -= exercised;
    QStringList lines;
    for (const int line : std::as_const(missing))
        lines.append(QStringLiteral("%1.mode:%2: no example: %3")
                         .arg(name)
                         .arg(line)
                         .arg(mode.sourceLines.at(line - 1)));
    lines.sort();
    qInfo("%lld of %lld rules have an example", qint64(fired.size()),
          qint64(mode.lineOfRule.size()));
    QVERIFY2(lines.isEmpty(), qPrintable(lines.join(u'\n')));
}

void tst_ModeFiles::packedFileIsBuilt()
{
    QFETCH(const QString, name);
    const LoadedMode mode = load(folder_.filePath(name + QStringLiteral(".mode")));
    const QDir programFolder(QStringLiteral(QUILLON_PROGRAM_FOLDER));
    const QString modeFile = QStringLiteral("Modes/%1.mod").arg(name);
    QCOMPARE(contentOf(programFolder.filePath(modeFile)), mode.packed.bytes);
    QCOMPARE(contentOf(programFolder.filePath(name + QStringLiteral(".bak"))), mode.packed.bytes);
}

QTEST_GUILESS_MAIN(tst_ModeFiles)
#include "tst_modefiles.moc"
