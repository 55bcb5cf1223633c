#include "engine/CodePage.h"
#include "platform/FontList.h"
#include "platform/RichTextBox.h"
#include "platform/SymbolFonts.h"

#include <QAbstractTextDocumentLayout>
#include <QDir>
#include <QFontDatabase>
#include <QGlyphRun>
#include <QPainterPath>
#include <QRawFont>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>

/// Text of code page 1252 in an installed font that has nothing but a symbol table.
class tst_SymbolFonts : public QObject
{
    Q_OBJECT

public:
    static void initMain();

private Q_SLOTS:
    void initTestCase();
    void everyCodeHasItsGlyph();
    void panesShowEveryCode();
    void otherFontsStayAsTheyAre();
};

namespace {

const QString family = QStringLiteral("Symbol Test");

/// All characters of code page 1252 that the font has ink for.
QString inkedCodes()
{
    constexpr int first = 0x21;
    constexpr int last = 0xFF;
    const QByteArray withoutSign("\x7F\x81\x8D\x8E\x8F\x90\x9D\x9E\xA0");
    QString text;
    for (int code = first; code <= last; ++code) {
        if (!withoutSign.contains(char(code)))
            text.append(QChar(codePageCharacter(static_cast<uchar>(code))));
    }
    return text;
}

} // namespace

void tst_SymbolFonts::initMain()
{
    // The font is installed for the test's user before anything asks for fonts.
    static const QTemporaryDir data;
    qputenv("XDG_DATA_HOME", data.path().toLocal8Bit());
    const QDir folder(data.path());
    if (!folder.mkpath(QStringLiteral("fonts")) ||
        !QFile::copy(QStringLiteral(SYMBOL_FONT),
                     folder.filePath(QStringLiteral("fonts/symbol.ttf"))))
        qFatal("the test font cannot be installed");
}

void tst_SymbolFonts::initTestCase()
{
    QVERIFY(QFontDatabase::families().contains(family));
    QVERIFY(!QRawFont::fromFont(QFont(family)).supportsCharacter(u'€'));
    showCodePageInSymbolFonts();
}

void tst_SymbolFonts::everyCodeHasItsGlyph()
{
    constexpr char16_t symbolArea = 0xF000;
    const QRawFont font = QRawFont::fromFont(QFont(family));
    QCOMPARE(font.familyName(), family);
    for (const QChar character : inkedCodes()) {
        const QChar symbol(symbolArea + *codePageByte(character.unicode()));
        const QList<quint32> glyph = font.glyphIndexesForString(character);
        QVERIFY2(glyph.value(0) != 0, qPrintable(QString(character)));
        QCOMPARE(glyph, font.glyphIndexesForString(symbol));
        QVERIFY(!font.pathForGlyph(glyph.front()).isEmpty());
    }
}

void tst_SymbolFonts::panesShowEveryCode()
{
    RichTextBox box;
    const QString text = inkedCodes();
    box.setText(text);
    box.setSelLength(int(text.size()));
    box.setSelFontName(family);
    box.show();
    QVERIFY(QTest::qWaitForWindowExposed(&box));
    box.document()->documentLayout()->documentSize(); // lays out what the window has not shown yet
    qsizetype shown = 0;
    for (const QGlyphRun &run : box.document()->begin().layout()->glyphRuns(0, int(text.size()))) {
        QCOMPARE(run.rawFont().familyName(), family);
        QVERIFY(!run.glyphIndexes().contains(0));
        shown += run.glyphIndexes().size();
    }
    QCOMPARE(shown, text.size() - 1); // the soft hyphen is drawn as an object
    QCOMPARE(box.Text(), text);
}

void tst_SymbolFonts::otherFontsStayAsTheyAre()
{
    const QStringList own = registerFonts(QStringLiteral(QUILLON_PROGRAM_FOLDER "/Fonts"));
    QCOMPARE(own.size(), 1);
    QVERIFY(withCodePage(QRawFont::fromFont(QFont(own.front()))).isEmpty());
    QVERIFY(withCodePage(QRawFont()).isEmpty());
    const QRawFont mended = QRawFont::fromFont(QFont(family));
    QVERIFY(withCodePage(mended).isEmpty());
}

QTEST_MAIN(tst_SymbolFonts)
#include "tst_symbolfonts.moc"
