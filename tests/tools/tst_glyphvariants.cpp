#include "tools/GlyphVariants.h"

#include "engine/CodePage.h"
#include "engine/RuntimeError.h"
#include "platform/RichTextBox.h"
#include "support/JournalRecord.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTest>
#include <QTextBlock>
#include <QTextCursor>

namespace {

using Command = void (GlyphVariants::*)();

struct Pair
{
    uchar find;
    uchar replace;
};

const std::vector<Pair> Curled = {{0x70, 0x5B}, {0x3B, 0x27}, {0x30, 0xEE},
                                  {0x2F, 0xEF}, {0x50, 0x7B}, {0x3A, 0x22},
                                  {0x29, 0xEC}, {0x3F, 0xED}, {0xB0, 0xB8}};
const std::vector<Pair> Straight = {{0x5B, 0x70}, {0x27, 0x3B}, {0xEE, 0x30},
                                    {0xEF, 0x2F}, {0x7B, 0x50}, {0x22, 0x3A},
                                    {0xEC, 0x29}, {0xED, 0x3F}, {0xB8, 0xB0}};
const std::vector<Pair> Looped = {{0xA5, 0x5F}, {0xA3, 0x2B}};
const std::vector<Pair> Standard = {{0x5F, 0xA5}, {0x2B, 0xA3}};

/// The plain way: for each pair, search and replace from the start until nothing is found.
void convertLiterally(RichTextBox &pane, const std::vector<Pair> &pairs)
{
    const int start = pane.SelStart();
    const int length = pane.SelLength();
    const int from = length > 0 ? start : 0;
    const int end = length > 0 ? start + length : pane.TextLength();
    for (const Pair &pair : pairs) {
        while (pane.find(QString(QChar(codePageCharacter(pair.find))), from, end,
                         FindFlag::MatchCase) >= 0)
            pane.setSelText(QString(QChar(codePageCharacter(pair.replace))));
    }
    if (length > 0) {
        pane.setSelStart(start);
        pane.setSelLength(length);
    }
}

} // namespace

class tst_GlyphVariants : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void convertsLikeTheLiteralLoop_data();
    void convertsLikeTheLiteralLoop();
    void onlyTheSelection();
    void thereAndBack();
    void keepsFormats();
    void recordsOneState();
    void selectionBeyondTheLimit();
    void longTextTakesLittleTime();
    void longTextKeepsItsFormats();
};

void tst_GlyphVariants::convertsLikeTheLiteralLoop_data()
{
    QTest::addColumn<Command>("command");
    QTest::addColumn<std::vector<Pair>>("pairs");
    QTest::newRow("curled to straight") << &GlyphVariants::curledToStraight << Curled;
    QTest::newRow("straight to curled") << &GlyphVariants::straightToCurled << Straight;
    QTest::newRow("looped to standard") << &GlyphVariants::loopedToStandard << Looped;
    QTest::newRow("standard to looped") << &GlyphVariants::standardToLooped << Standard;
}

void tst_GlyphVariants::convertsLikeTheLiteralLoop()
{
    QFETCH(Command, command);
    QFETCH(std::vector<Pair>, pairs);
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    for (int run = 0; run < 100; ++run) {
        QString text;
        for (int i = random.bounded(60); i > 0; --i) {
            const bool isLineEnd = random.bounded(8) == 0;
            text += isLineEnd
                        ? u"\r\n"_qs
                        : QString(QChar(codePageCharacter(uchar(random.bounded(0x20, 0x100)))));
            const Pair &pair = pairs[size_t(random.bounded(int(pairs.size())))];
            text += QChar(codePageCharacter(pair.find));
        }
        RichTextBox literal;
        RichTextBox pane;
        const int start = random.bounded(int(text.size()) + 1);
        const int length = run % 2 == 0 ? 0 : random.bounded(int(text.size()) + 1);
        for (RichTextBox *box : {&literal, &pane}) {
            box->setText(text);
            box->setSelStart(start);
            box->setSelLength(length);
        }
        convertLiterally(literal, pairs);
        JournalRecord journal;
        GlyphVariants variants(pane, journal);
        (variants.*command)();
        QCOMPARE(pane.Text(), literal.Text());
        QCOMPARE(pane.SelStart(), literal.SelStart());
        QCOMPARE(pane.SelLength(), literal.SelLength());
    }
}

void tst_GlyphVariants::onlyTheSelection()
{
    RichTextBox pane;
    pane.setText(u"pPpPpP"_qs);
    pane.setSelStart(1);
    pane.setSelLength(3);
    JournalRecord journal;
    GlyphVariants(pane, journal).curledToStraight();
    QCOMPARE(pane.Text(), u"p{[{pP"_qs);
    QCOMPARE(pane.SelStart(), 1);
    QCOMPARE(pane.SelLength(), 3);
}

void tst_GlyphVariants::thereAndBack()
{
    const QString text = u"a['\u00EE\u00EF{\"\u00EC\u00ED\u00B8z"_qs;
    RichTextBox pane;
    pane.setText(text);
    JournalRecord journal;
    GlyphVariants variants(pane, journal);
    variants.straightToCurled();
    QCOMPARE(pane.Text(), u"ap;0/P:)?\u00B0z"_qs);
    variants.curledToStraight();
    QCOMPARE(pane.Text(), text);
}

void tst_GlyphVariants::keepsFormats()
{
    RichTextBox pane;
    pane.setText(u"__\u00AD__\r\n_+"_qs);
    QTextCursor cursor(pane.document());
    for (int position = 0; position < 8; ++position) {
        cursor.setPosition(position);
        cursor.setPosition(position + 1, QTextCursor::KeepAnchor);
        QTextCharFormat format;
        format.setFontPointSize(10 + position / 2);
        format.setForeground(QColor(position, 0, 0));
        cursor.mergeCharFormat(format);
    }
    JournalRecord journal;
    GlyphVariants(pane, journal).standardToLooped();
    QCOMPARE(pane.Text(), u"\u00A5\u00A5\u00AD\u00A5\u00A5\r\n\u00A5\u00A3"_qs);
    for (const int position : {0, 1, 2, 3, 4, 6, 7}) {
        cursor.setPosition(position);
        cursor.setPosition(position + 1, QTextCursor::KeepAnchor);
        QCOMPARE(cursor.charFormat().fontPointSize(), 10.0 + position / 2);
        QCOMPARE(cursor.charFormat().foreground().color(), QColor(position, 0, 0));
    }
}

void tst_GlyphVariants::recordsOneState()
{
    RichTextBox pane;
    pane.setText(u"none of them"_qs);
    pane.setSelStart(4);
    JournalRecord journal;
    GlyphVariants(pane, journal).loopedToStandard();
    QCOMPARE(journal.saved, std::vector{PaneCode::Target});
    QCOMPARE(pane.Text(), u"none of them"_qs);
    QCOMPARE(pane.SelStart(), 4);
}

void tst_GlyphVariants::selectionBeyondTheLimit()
{
    RichTextBox pane;
    pane.setText(QString(32'768, u'p'));
    JournalRecord journal;
    GlyphVariants variants(pane, journal);
    pane.setSelLength(32'767);
    variants.curledToStraight();
    QCOMPARE(pane.Text(), QString(32'767, u'[') + u'p');
    pane.setSelStart(1);
    pane.setSelLength(32'767);
    QVERIFY_THROWS_EXCEPTION(RuntimeError, variants.straightToCurled());
    QCOMPARE(pane.Text(), QString(32'767, u'[') + u'p');
    // Without a selection there is no limit.
    pane.setSelStart(0);
    variants.curledToStraight();
    QCOMPARE(pane.Text(), QString(32'768, u'['));
}

void tst_GlyphVariants::longTextTakesLittleTime()
{
    RichTextBox pane;
    pane.resize(400, 300);
    pane.show();
    pane.setText(u"p a "_qs.repeated(8000));
    JournalRecord journal;
    QElapsedTimer clock;
    clock.start();
    GlyphVariants(pane, journal).curledToStraight();
    QVERIFY2(clock.elapsed() < 500, qPrintable(u"%1 ms"_qs.arg(clock.elapsed())));
    QCOMPARE(pane.Text(), u"[ a "_qs.repeated(8000));
}

void tst_GlyphVariants::longTextKeepsItsFormats()
{
    constexpr int Characters = 32'000;
    const auto sizeAt = [](int position) { return 8 + position % 17; };
    RichTextBox pane;
    pane.resize(400, 300);
    pane.show();
    QTextCursor cursor(pane.document());
    cursor.beginEditBlock();
    for (int position = 0; position < Characters; ++position) {
        QTextCharFormat format;
        format.setFontPointSize(sizeAt(position));
        cursor.insertText(position % 2 == 0 ? u"p"_qs : u"a"_qs, format);
    }
    cursor.endEditBlock();
    JournalRecord journal;
    QElapsedTimer clock;
    clock.start();
    GlyphVariants(pane, journal).curledToStraight();
    QVERIFY2(clock.elapsed() < 5'000, qPrintable(u"%1 ms"_qs.arg(clock.elapsed())));
    QCOMPARE(pane.Text(), u"[a"_qs.repeated(Characters / 2));
    int position = 0;
    const QTextBlock block = pane.document()->firstBlock();
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        for (int i = 0; i < it.fragment().length(); ++i, ++position)
            QCOMPARE(it.fragment().charFormat().fontPointSize(), double(sizeAt(position)));
    }
    QCOMPARE(position, Characters);
}

QTEST_MAIN(tst_GlyphVariants)
#include "tst_glyphvariants.moc"
