#include "MarkPlaces.h"

#include <QDir>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGlyphRun>
#include <QPainterPath>
#include <QRawFont>
#include <QStringDecoder>
#include <QTest>
#include <QTextLayout>

#include <algorithm>

namespace {

const QString family = QStringLiteral("Tengwar Quillon");
/// Pixels to the em, so that a pixel is a unit of the drawings.
constexpr int em = 1000;
/// The least room, in units, between a mark and its letter.
constexpr double clearance = 6;

struct StyleCase
{
    const char *name;
    bool bold;
    bool italic;
    /// What the advances are multiplied with.
    double stretch;
};
constexpr std::array styleCases{
    StyleCase{"Regular", false, false, 1.0}, StyleCase{"Bold", true, false, 1.06},
    StyleCase{"Italic", false, true, 1.0}, StyleCase{"Bold Italic", true, true, 1.06}};

QFont fontOf(const StyleCase &style)
{
    QFont font(family);
    font.setPixelSize(em);
    font.setBold(style.bold);
    font.setItalic(style.italic);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::NoFontMerging);
    return font;
}

QChar characterOf(int code)
{
    return QString(QStringDecoder("windows-1252").decode(QByteArray(1, static_cast<char>(code))))
        .front();
}

bool hasSign(int code)
{
    constexpr std::array unassigned{0x7f, 0x81, 0x8d, 0x8e, 0x8f, 0x90, 0x9d, 0x9e};
    return std::find(unassigned.begin(), unassigned.end(), code) == unassigned.end();
}

bool isBlank(int code)
{
    return code == 0x20 || code == 0xa0;
}

QList<quint32> glyphsOf(const QRawFont &font, const QString &text)
{
    return font.glyphIndexesForString(text);
}

/// The outlines of the glyphs of a text as laid out, in the order of the text; y points down.
QList<QPainterPath> laidOut(const QString &text, const QFont &font)
{
    QTextLayout layout(text, font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    QList<QPainterPath> paths;
    for (const QGlyphRun &run : layout.glyphRuns()) {
        const QList<quint32> glyphs = run.glyphIndexes();
        const QList<QPointF> places = run.positions();
        for (qsizetype i = 0; i < glyphs.size(); ++i)
            paths.append(run.rawFont().pathForGlyph(glyphs[i]).translated(places[i]));
    }
    return paths;
}

bool touches(const QPainterPath &letter, const QPainterPath &mark)
{
    QPainterPathStroker halo;
    halo.setWidth(2 * clearance);
    halo.setJoinStyle(Qt::RoundJoin);
    return letter.intersects(mark) || letter.intersects(halo.createStroke(mark));
}

/// Those of the letters that a mark touches.
QString collisions(QStringView letters, QChar mark, const QFont &font)
{
    QString found;
    for (const QChar letter : letters) {
        const QList<QPainterPath> paths = laidOut(QString(letter) + mark, font);
        if (paths.size() != 2 || touches(paths[0], paths[1]))
            found += letter;
    }
    return found;
}

QString withoutLetters(QStringView all, QStringView without)
{
    QString rest;
    std::copy_if(all.begin(), all.end(), std::back_inserter(rest),
                 [&](QChar c) { return !without.contains(c); });
    return rest;
}

QString allLetters()
{
    QString letters;
    for (const MarkPlaces::Place &place : MarkPlaces::above)
        letters += QStringView(place.letters);
    return letters;
}

/// All characters of marks: no advance, drawn back over what is before them.
QString allMarks()
{
    QString marks = QStringLiteral("|}()O>");
    for (const MarkPlaces::Tehta &tehta : MarkPlaces::tehtarAbove)
        marks += QStringView(tehta.codes.data(), 4);
    for (const MarkPlaces::Tehta &tehta : MarkPlaces::tehtarBelow)
        marks += QStringView(tehta.codes.data(), 4);
    for (const MarkPlaces::Bar &bar : MarkPlaces::bars)
        marks += QString(QChar(bar.wide)) + QChar(bar.single);
    return marks + QString::fromUtf16(MarkPlaces::insideLambe.data(), 5) + QChar(0xad);
}

} // namespace

class tst_font : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void stylesOfTheFamily();
    void everySignHasInk_data();
    void everySignHasInk();
    void unassignedCodesHaveNoSign();
    void marksTakeNoRoom_data();
    void marksTakeNoRoom();
    void marksAreClearOfTheirLetters_data();
    void marksAreClearOfTheirLetters();
    void marksStandOverTheirLetters_data();
    void marksStandOverTheirLetters();
    void marksOnOneLetterAreClear_data();
    void marksOnOneLetterAreClear();
    void hooksJoinTheirBows_data();
    void hooksJoinTheirBows();
    void hooksHangFromDoublingSigns_data();
    void hooksHangFromDoublingSigns();
    void advances_data();
    void advances();
    void linesHoldAllInk_data();
    void linesHoldAllInk();
    void softHyphenHasACopy();
    void symbolAreaRepeatsTheCodes();
    void leaningNecksAreKeptFromStems();
    void privateUseLettersAreTheSameSigns();
    void privateUseMarksFindTheirLetters_data();
    void privateUseMarksFindTheirLetters();

private:
    static void addStyles();
    static const StyleCase &style();
};

void tst_font::initTestCase()
{
    const QDir folder(QStringLiteral(QUILLON_PROGRAM_FOLDER "/Fonts"));
    const QStringList files = folder.entryList({QStringLiteral("TengwarQuillon-*.otf")});
    QCOMPARE(files.size(), qsizetype(styleCases.size()));
    for (const QString &file : files)
        QVERIFY2(QFontDatabase::addApplicationFont(folder.filePath(file)) >= 0, qPrintable(file));
}

void tst_font::addStyles()
{
    QTest::addColumn<int>("index");
    for (size_t i = 0; i < styleCases.size(); ++i)
        QTest::newRow(styleCases[i].name) << static_cast<int>(i);
}

const StyleCase &tst_font::style()
{
    QFETCH(int, index);
    return styleCases[static_cast<size_t>(index)];
}

void tst_font::stylesOfTheFamily()
{
    QStringList styles = QFontDatabase::styles(family);
    styles.sort();
    QCOMPARE(styles, QStringList({QStringLiteral("Bold"), QStringLiteral("Bold Italic"),
                                  QStringLiteral("Italic"), QStringLiteral("Regular")}));
    for (const StyleCase &each : styleCases)
        QCOMPARE(QRawFont::fromFont(fontOf(each)).styleName(), QLatin1String(each.name));
}

void tst_font::everySignHasInk_data()
{
    addStyles();
}

void tst_font::everySignHasInk()
{
    const QRawFont font = QRawFont::fromFont(fontOf(style()));
    for (int code = 0x20; code <= 0xff; ++code) {
        if (!hasSign(code))
            continue;
        const QList<quint32> glyphs = glyphsOf(font, characterOf(code));
        QCOMPARE(glyphs.size(), 1);
        QVERIFY2(glyphs[0] != 0, qPrintable(QString::number(code, 16)));
        QVERIFY2(font.pathForGlyph(glyphs[0]).isEmpty() == isBlank(code),
                 qPrintable(QString::number(code, 16)));
    }
}

void tst_font::unassignedCodesHaveNoSign()
{
    const QRawFont font = QRawFont::fromFont(fontOf(styleCases[0]));
    for (int code = 0x20; code <= 0xff; ++code)
        QVERIFY2(font.supportsCharacter(characterOf(code)) == hasSign(code),
                 qPrintable(QString::number(code, 16)));
}

void tst_font::marksTakeNoRoom_data()
{
    addStyles();
}

void tst_font::marksTakeNoRoom()
{
    const QRawFont font = QRawFont::fromFont(fontOf(style()));
    for (const QChar mark : allMarks()) {
        const quint32 glyph = glyphsOf(font, mark).front();
        QVERIFY2(qFuzzyIsNull(font.advancesForGlyphIndexes({glyph}).front().x()),
                 qPrintable(QString(mark)));
        const QRectF ink = font.pathForGlyph(glyph).boundingRect();
        // A slant carries the high marks to the right.
        QVERIFY2(style().italic ? ink.left() < 0 : ink.right() < 0, qPrintable(QString(mark)));
    }
}

namespace {

using MarkRow = void (*)(const char *, const QString &letters, QChar mark, int style);

/// Calls for each style, mark and place with the letters that take the mark in this place.
void forEachPlacedMark(MarkRow add)
{
    for (size_t style = 0; style < styleCases.size(); ++style) {
        const auto row = [&](const QString &name, const QString &letters, char16_t mark) {
            add(qPrintable(QLatin1String(styleCases[style].name) + QStringLiteral(", ") + name),
                letters, mark, static_cast<int>(style));
        };
        for (size_t place = 0; place < 4; ++place) {
            const auto name = [&](const char16_t *mark, const MarkPlaces::Place &where) {
                return QString::fromUtf16(mark) + QStringLiteral(", ") +
                       QString::fromUtf16(where.name);
            };
            for (const MarkPlaces::Tehta &tehta : MarkPlaces::tehtarAbove)
                row(QStringLiteral("above, ") + name(tehta.name, MarkPlaces::above[place]),
                    QString::fromUtf16(MarkPlaces::above[place].letters), tehta.codes[place]);
            for (const MarkPlaces::Tehta &tehta : MarkPlaces::tehtarBelow)
                row(QStringLiteral("below, ") + name(tehta.name, MarkPlaces::below[place]),
                    QString::fromUtf16(MarkPlaces::below[place].letters), tehta.codes[place]);
        }
        const QString doubled = QStringView(MarkPlaces::doubled).toString();
        for (const MarkPlaces::Bar &bar : MarkPlaces::bars) {
            row(QString::fromUtf16(bar.name) + QStringLiteral(", wide"), doubled, bar.wide);
            row(QString::fromUtf16(bar.name) + QStringLiteral(", single"),
                withoutLetters(allLetters(), doubled), bar.single);
        }
        for (const char16_t mark : MarkPlaces::insideLambe)
            row(QStringLiteral("inside ") + QChar(mark),
                QStringView(MarkPlaces::lambeAndAlda).toString(), mark);
    }
}

void addPlacedMarks()
{
    QTest::addColumn<QString>("letters");
    QTest::addColumn<QChar>("mark");
    QTest::addColumn<int>("index");
    forEachPlacedMark([](const char *name, const QString &letters, QChar mark, int style) {
        QTest::newRow(name) << letters << mark << style;
    });
}

} // namespace

void tst_font::marksAreClearOfTheirLetters_data()
{
    addPlacedMarks();
}

void tst_font::marksAreClearOfTheirLetters()
{
    QFETCH(QString, letters);
    QFETCH(QChar, mark);
    QCOMPARE(collisions(letters, mark, fontOf(style())), QString());
}

void tst_font::marksStandOverTheirLetters_data()
{
    addPlacedMarks();
}

void tst_font::marksStandOverTheirLetters()
{
    QFETCH(QString, letters);
    QFETCH(QChar, mark);
    if (style().italic)
        QSKIP("A slant moves the bands against each other");
    for (const QChar letter : letters) {
        const QList<QPainterPath> paths = laidOut(QString(letter) + mark, fontOf(style()));
        QCOMPARE(paths.size(), 2);
        const QRectF ink = paths[0].boundingRect();
        const double middle = paths[1].boundingRect().center().x();
        // Beside the bare stems, whose ink is narrower than a mark, there is no other place.
        const double beside = ink.width() < 260 ? 250 : 60;
        QVERIFY2(middle > ink.left() - 35 && middle < ink.right() + beside,
                 qPrintable(QStringLiteral("%1: %2 over %3 to %4")
                                .arg(letter)
                                .arg(middle)
                                .arg(ink.left())
                                .arg(ink.right())));
    }
}

void tst_font::marksOnOneLetterAreClear_data()
{
    addStyles();
}

void tst_font::marksOnOneLetterAreClear()
{
    const auto areClear = [](QChar letter, QChar first, QChar second) {
        const QList<QPainterPath> paths =
            laidOut(QString(letter) + first + second, fontOf(style()));
        return paths.size() == 3 && !touches(paths[1], paths[2]);
    };
    // Letters with doubled bows and with single ones, a nasal or doubled, with a vowel.
    for (const QChar letter : {u'5', u'6'}) {
        const size_t place = letter == u'5' ? 0 : 1;
        for (const MarkPlaces::Tehta &tehta : MarkPlaces::tehtarAbove)
            for (const QChar bar : place == 0 ? QStringLiteral("{P") : QStringLiteral("[p"))
                QVERIFY2(areClear(letter, bar, tehta.codes[place]),
                         qPrintable(QString::fromUtf16(tehta.name)));
        for (const MarkPlaces::Tehta &tehta : MarkPlaces::tehtarBelow)
            for (const QChar bar : place == 0 ? QStringLiteral("\":") : QStringLiteral("';"))
                QVERIFY2(areClear(letter, bar, tehta.codes[place]),
                         qPrintable(QString::fromUtf16(tehta.name)));
    }
    // Long vowels as doubled curls.
    QVERIFY(areClear(u'z', u'^', u'H'));
    QVERIFY(areClear(u'5', u'&', u'J'));
}

void tst_font::hooksJoinTheirBows_data()
{
    addStyles();
}

void tst_font::hooksJoinTheirBows()
{
    for (const MarkPlaces::Hook &hook : MarkPlaces::hooks)
        for (const char16_t letter : hook.letters) {
            const QList<QPainterPath> paths =
                laidOut(QString(QChar(letter)) + QChar(hook.code), fontOf(style()));
            QCOMPARE(paths.size(), 2);
            QVERIFY2(paths[0].intersects(paths[1]), qPrintable(QString(QChar(letter))));
        }
}

void tst_font::hooksHangFromDoublingSigns_data()
{
    addStyles();
}

void tst_font::hooksHangFromDoublingSigns()
{
    for (const QString &text :
         {QStringLiteral("z;|"), QStringLiteral("z;Y|"), QStringLiteral("x:$|"),
          QStringLiteral("a'|"), QStringLiteral("s\"#|")}) {
        const QList<QPainterPath> paths = laidOut(text, fontOf(style()));
        QCOMPARE(paths.size(), text.size());
        const QPainterPath &hook = paths.last();
        QVERIFY2(!touches(paths[0], hook), qPrintable(text));
        QVERIFY2(paths[1].intersects(hook), qPrintable(text));
        QVERIFY2(hook.boundingRect().bottom() > paths[1].boundingRect().bottom(), qPrintable(text));
    }
}

void tst_font::advances_data()
{
    QTest::addColumn<QString>("characters");
    QTest::addColumn<int>("advance");
    QTest::newRow("one bow") << QStringLiteral("1qaz3edc6yhn!QAZ") << 630;
    QTest::newRow("two bows") << QStringLiteral("2wsx4rfv5tgb@WSX") << 930;
    QTest::newRow("lambe, alda") << QStringLiteral("jm") << 730;
    QTest::newRow("silme, esse") << QStringLiteral("8ik,") << 610;
    QTest::newRow("carriers") << QString::fromUtf16(u"`~\u00bd") << 300;
    QTest::newRow("spaces") << QString::fromUtf16(u" \u00a0") << 280;
}

void tst_font::advances()
{
    QFETCH(QString, characters);
    QFETCH(int, advance);
    for (const StyleCase &each : styleCases) {
        const QRawFont font = QRawFont::fromFont(fontOf(each));
        for (const QPointF &found : font.advancesForGlyphIndexes(glyphsOf(font, characters)))
            QCOMPARE(qRound(found.x()), qRound(advance * each.stretch));
    }
}

void tst_font::linesHoldAllInk_data()
{
    addStyles();
}

void tst_font::linesHoldAllInk()
{
    const QFont font = fontOf(style());
    const QRawFont raw = QRawFont::fromFont(font);
    QRectF ink;
    for (int code = 0x20; code <= 0xff; ++code)
        if (hasSign(code))
            ink |= raw.pathForGlyph(glyphsOf(raw, characterOf(code)).front()).boundingRect();
    for (const QChar letter : allLetters())
        for (const QChar mark : {QChar(0xd1), QChar(0xd3)})
            for (const QPainterPath &path : laidOut(QString(letter) + mark, font))
                ink |= path.boundingRect().translated(0, -QFontMetricsF(font).ascent());
    QVERIFY2(-ink.top() <= raw.ascent() && -ink.top() > 0.9 * raw.ascent(),
             qPrintable(QString::number(-ink.top())));
    QVERIFY2(ink.bottom() <= raw.descent() && ink.bottom() > 0.8 * raw.descent(),
             qPrintable(QString::number(ink.bottom())));
}

void tst_font::softHyphenHasACopy()
{
    const QRawFont font = QRawFont::fromFont(fontOf(styleCases[0]));
    const QList<quint32> glyphs = glyphsOf(font, QString::fromUtf16(u"\u00ad\u20ac"));
    QCOMPARE(font.pathForGlyph(glyphs[0]), font.pathForGlyph(glyphs[1]));
}

void tst_font::symbolAreaRepeatsTheCodes()
{
    const QRawFont font = QRawFont::fromFont(fontOf(styleCases[0]));
    for (int code = 0x20; code <= 0xff; ++code)
        if (hasSign(code))
            QCOMPARE(glyphsOf(font, QChar(0xf000 + code)), glyphsOf(font, characterOf(code)));
    // Unlike the soft hyphen itself, its place in this area survives layout.
    const QList<QPainterPath> paths = laidOut(QStringLiteral("6\uf0ad"), fontOf(styleCases[0]));
    QCOMPARE(paths.size(), 2);
    QVERIFY(!paths[1].isEmpty());
}

void tst_font::leaningNecksAreKeptFromStems()
{
    const auto width = [](const QString &text) {
        return QFontMetricsF(fontOf(styleCases[0])).horizontalAdvance(text);
    };
    QCOMPARE(width(QStringLiteral("83")),
             width(QStringLiteral("8")) + width(QStringLiteral("3")) + 44);
    QCOMPARE(width(QStringLiteral("8#3")), width(QStringLiteral("83")));
    QCOMPARE(width(QStringLiteral("86")), width(QStringLiteral("8")) + width(QStringLiteral("6")));
}

void tst_font::privateUseLettersAreTheSameSigns()
{
    const QRawFont font = QRawFont::fromFont(fontOf(styleCases[0]));
    QString privateUse;
    for (char16_t c = 0xe000; c <= 0xe026; ++c)
        privateUse += QChar(c);
    for (char16_t c = 0xe070; c <= 0xe07b; ++c)
        privateUse += QChar(c);
    const QString keys = QString::fromUtf16(
        u"1qaz2wsx3edc4rfv5tgb6yhn7ujm8ik,9ol.\u00bd`~"
        u"\u00f0\u00f1\u00f2\u00f3\u00f4\u00f5\u00f6\u00f7\u00f8\u00f9\u00fa\u00fb");
    QCOMPARE(glyphsOf(font, privateUse), glyphsOf(font, keys));
}

void tst_font::privateUseMarksFindTheirLetters_data()
{
    addStyles();
}

void tst_font::privateUseMarksFindTheirLetters()
{
    const QFont font = fontOf(style());
    // Three dots above and below, acute, dots, curls, bars: over narrow, single and doubled
    // letters.
    for (const QChar mark :
         QString::fromUtf16(u"\ue040\ue041\ue042\ue043\ue044\ue045\ue046\ue048\ue04a\ue04c\ue04d"))
        for (char16_t letter = 0xe000; letter <= 0xe02f; ++letter) {
            if (letter == 0xe027)
                continue; // has no sign
            const QList<QPainterPath> paths = laidOut(QString(QChar(letter)) + mark, font);
            QCOMPARE(paths.size(), 2);
            QVERIFY2(!touches(paths[0], paths[1]),
                     qPrintable(QString::number(letter, 16) + QLatin1Char(' ') +
                                QString::number(mark.unicode(), 16)));
        }
}

QTEST_MAIN(tst_font)
#include "tst_font.moc"
