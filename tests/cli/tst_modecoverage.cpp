#include "cli/ProgramRun.h"
#include "engine/CodePage.h"

#include <QFile>
#include <QSet>
#include <QTest>

/// Types every character of the code page, composed and combining, into each mode that comes with
/// the program, and holds what is undefined against the promises of docs/modes.md.
class tst_ModeCoverage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void undefinedAsDocumented_data() { addModes(); }
    void undefinedAsDocumented();
    void combiningMarksCompose_data() { addModes(); }
    void combiningMarksCompose();
    void outsideTheCodePage_data() { addModes(); }
    void outsideTheCodePage();

private:
    static void addModes();
};

namespace {

const QString undefinedMark = QStringLiteral("<?>");

QString everyCharacter()
{
    constexpr int first = 0x20;
    constexpr int last = 0xFF;
    constexpr char16_t softHyphen = 0xAD; // means no sign, but is no printable character either
    QString characters;
    for (int byte = first; byte <= last; ++byte) {
        const QChar character(codePageCharacter(static_cast<uchar>(byte)));
        if (character.isPrint() || character.unicode() == softHyphen)
            characters.append(character);
    }
    return characters;
}

/// What each of the texts becomes in a mode.
QStringList transcribed(const QString &mode, const QStringList &texts)
{
    const ProgramRun run = runProgram({QStringLiteral("transcribe"), QStringLiteral("--mode"), mode,
                                       QStringLiteral("--undefined"), undefinedMark},
                                      texts.join(u'\n').toUtf8());
    return run.status == 0 ? QString::fromUtf8(run.output).split(u'\n') : QStringList();
}

QStringList separate(const QString &characters)
{
    return characters.split(QString(), Qt::SkipEmptyParts);
}

/// The characters that the mode's section of docs/modes.md lists as undefined.
QString documentedAsUndefined(const QString &mode)
{
    QFile file(QStringLiteral(QUILLON_SOURCE_FOLDER "/docs/modes.md"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QString page = QString::fromUtf8(file.readAll());
    const QString section = page.section(QStringLiteral("\n## %1\n").arg(mode), 1)
                                .section(QStringLiteral("\n## "), 0, 0);
    const QString line = section.section(QStringLiteral("\nUndefined"), 1).section(u'\n', 0, 0);
    const qsizetype open = line.indexOf(u'`');
    QString list = line.mid(open, line.lastIndexOf(u'`') - open + 1);
    while (list.startsWith(u'`') && list.endsWith(u'`'))
        list = list.sliced(1).chopped(1);
    return list.remove(u' ');
}

QString sorted(QString characters)
{
    std::sort(characters.begin(), characters.end());
    return characters;
}

} // namespace

void tst_ModeCoverage::addModes()
{
    QTest::addColumn<QString>("mode");
    for (const char *mode : {"English", "Quenya", "Sindarin", "Beleriand", "Black Speech"})
        QTest::newRow(mode) << QString::fromLatin1(mode);
}

void tst_ModeCoverage::undefinedAsDocumented()
{
    QFETCH(const QString, mode);
    const QString characters = everyCharacter();
    const QStringList codes = transcribed(mode, separate(characters));
    QCOMPARE(codes.size(), characters.size());
    QString undefined;
    for (qsizetype i = 0; i < characters.size(); ++i) {
        if (codes.at(i).contains(undefinedMark))
            undefined.append(characters.at(i));
    }
    QCOMPARE(sorted(undefined), sorted(documentedAsUndefined(mode)));
}

void tst_ModeCoverage::combiningMarksCompose()
{
    QFETCH(const QString, mode);
    QStringList composed;
    QStringList combining;
    for (const QString &character : separate(everyCharacter())) {
        const QString parts = character.normalized(QString::NormalizationForm_D);
        if (parts == character)
            continue;
        composed.append(u'a' + character + u'n');
        combining.append(u'a' + parts + u'n');
    }
    constexpr qsizetype fewest = 50;
    QVERIFY(composed.size() > fewest);
    QCOMPARE(transcribed(mode, combining), transcribed(mode, composed));
}

void tst_ModeCoverage::outsideTheCodePage()
{
    QFETCH(const QString, mode);
    const QString characters = QStringLiteral("ŷŵāēīōūȳǣąđıłřαжא✓");
    QStringList texts;
    for (const QString &character : separate(characters)) {
        texts.append(character);
        texts.append(character.normalized(QString::NormalizationForm_D));
    }
    const QStringList codes = transcribed(mode, texts);
    QCOMPARE(codes.size(), texts.size());
    for (qsizetype i = 0; i < texts.size(); ++i)
        QVERIFY2(codes.at(i) == undefinedMark, qPrintable(texts.at(i)));
}

QTEST_GUILESS_MAIN(tst_ModeCoverage)
#include "tst_modecoverage.moc"
