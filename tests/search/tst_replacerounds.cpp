#include "search/ReplaceRounds.h"

#include "engine/RuntimeError.h"
#include "platform/RichTextBox.h"
#include "platform/TextPosition.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTest>

namespace {

constexpr int MostRounds = 40;

QString randomText(QRandomGenerator &random, int shortest, int longest)
{
    static const QStringList pieces = {u"a"_qs, u"a"_qs,    u"b"_qs, u"A"_qs,          u" "_qs,
                                       u"-"_qs, u"\r\n"_qs, u"😀"_qs, u"\U00010400"_qs, u"\xAD"_qs};
    QString text;
    for (int i = random.bounded(shortest, longest + 1); i > 0; --i)
        text += pieces[random.bounded(int(pieces.size()))];
    return text;
}

/// Makes stretches of the pane bold, of another size, or both, at random.
void formatAtRandom(QRandomGenerator &random, RichTextBox &pane)
{
    const int end = pane.document()->characterCount() - 1;
    for (int stretch = 0; stretch < 4; ++stretch) {
        // By whole characters: no half of a surrogate pair looks different.
        QTextCursor cursor(pane.document());
        cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::MoveAnchor,
                            random.bounded(end + 1));
        cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor,
                            random.bounded(end + 1));
        QTextCharFormat format;
        format.setFontWeight(random.bounded(2) == 0 ? QFont::Bold : QFont::Normal);
        format.setFontPointSize(random.bounded(8, 12));
        cursor.mergeCharFormat(format);
    }
}

/// How each character looks: weight and size. Ends of paragraphs are left out: what is typed into
/// an emptied one looks as the last deleted character did, and which one that was may differ.
QStringList looks(const RichTextBox &pane)
{
    QStringList all;
    QTextCursor cursor(pane.document());
    while (cursor.movePosition(QTextCursor::NextCharacter)) {
        if (cursor.atBlockStart())
            continue;
        const QTextCharFormat format = cursor.charFormat();
        all += u"%1/%2"_qs.arg(format.fontWeight()).arg(format.fontPointSize());
    }
    return all;
}

/// The plain way: every round finds and replaces in the pane, from its start.
int replaceLiterally(RichTextBox &pane, const QString &sought, FindFlags flags,
                     const QString &replacement)
{
    int rounds = 0;
    while (rounds < MostRounds && pane.find(sought, 0, pane.TextLength(), flags) >= 0) {
        pane.setSelText(replacement);
        ++rounds;
    }
    return rounds;
}

} // namespace

class tst_ReplaceRounds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void equalsTheLiteralLoop();
    void replacementMakesNewMatches_data();
    void replacementMakesNewMatches();
    void textStopsGrowing();
    void longestTextsCanBeChanged();
    void longTextTakesLittleTime();
};

void tst_ReplaceRounds::equalsTheLiteralLoop()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    int cascades = 0;
    for (int run = 0; run < 2000; ++run) {
        const QString text = randomText(random, 0, 30);
        const QString sought = randomText(random, 1, 3);
        const QString replacement = randomText(random, 0, 4);
        const auto flags = FindFlags::fromInt(random.bounded(4) * 2);
        const quint32 formats = random.generate();
        RichTextBox literal;
        RichTextBox pane;
        for (RichTextBox *box : {&literal, &pane}) {
            box->setText(text);
            QRandomGenerator same(formats);
            formatAtRandom(same, *box);
        }

        ReplaceRounds rounds(pane.Text(), TextSearch(sought, flags), userForm(replacement));
        while (rounds.count() < MostRounds && rounds.round()) {
        }
        applyEdits(pane, rounds.edits());

        const int count = replaceLiterally(literal, sought, flags, replacement);
        const QByteArray what =
            u"%1: %2 -> %3, flags %4"_qs.arg(text, sought, replacement).arg(flags.toInt()).toUtf8();
        QVERIFY2(rounds.count() == count, what.constData());
        QVERIFY2(pane.Text() == literal.Text(), what.constData());
        if (count > 0)
            QCOMPARE(rounds.caret(), literal.SelStart());
        // Where paragraphs come and go, the formats of their ends depend on the order of events.
        if (!sought.contains(u'\r') && !replacement.contains(u'\r'))
            QVERIFY2(looks(pane) == looks(literal), what.constData());
        cascades += count == MostRounds ? 1 : 0;
    }
    QVERIFY(cascades > 50);
}

void tst_ReplaceRounds::replacementMakesNewMatches_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("sought");
    QTest::addColumn<QString>("replacement");
    QTest::addColumn<FindFlags>("flags");
    QTest::addColumn<QString>("result");

    QTest::newRow("before the match")
        << u"aaab"_qs << u"ab"_qs << u"b"_qs << FindFlags() << u"b"_qs;
    QTest::newRow("shrinks") << u"x   y"_qs << u"  "_qs << u" "_qs << FindFlags() << u"x y"_qs;
    QTest::newRow("removed") << u"aabb"_qs << u"ab"_qs << QString() << FindFlags() << QString();
    QTest::newRow("word ends by the next replacement")
        << u"a ab"_qs << u"a"_qs << u"-"_qs << FindFlags(FindFlag::WholeWord) << u"- ab"_qs;
    QTest::newRow("match becomes a word")
        << u"aa-"_qs << u"a-"_qs << u"--"_qs << FindFlags(FindFlag::MatchCase) << u"---"_qs;
    QTest::newRow("nothing") << u"abc"_qs << QString() << u"x"_qs << FindFlags() << u"abc"_qs;
}

void tst_ReplaceRounds::replacementMakesNewMatches()
{
    QFETCH(QString, text);
    QFETCH(QString, sought);
    QFETCH(QString, replacement);
    QFETCH(FindFlags, flags);
    RichTextBox pane;
    pane.setText(text);
    ReplaceRounds rounds(text, TextSearch(sought, flags), replacement);
    while (rounds.round())
        QVERIFY(rounds.count() < MostRounds);
    applyEdits(pane, rounds.edits());
    QTEST(pane.Text(), "result");
}

void tst_ReplaceRounds::textStopsGrowing()
{
    const QString replacement(5000, u'a');
    ReplaceRounds rounds(u"a"_qs, TextSearch(u"a"_qs, {}), replacement);
    const auto runOn = [&] {
        while (rounds.round()) {
        }
    };
    QVERIFY_THROWS_EXCEPTION(RuntimeError, runOn());
    // One more round would make it longer than ten million.
    QCOMPARE(rounds.count(), 2000);
    qsizetype length = 0;
    for (const TextEdit &edit : rounds.edits())
        length += edit.text.size();
    QCOMPARE(length, 1 + 2000 * 4999);
}

void tst_ReplaceRounds::longestTextsCanBeChanged()
{
    const QString text(ReplaceRounds::MaximumLength, u'b');
    for (const QString &replacement : {u"ba"_qs, u"b"_qs}) {
        ReplaceRounds rounds(text + u"abc"_qs, TextSearch(u"ab"_qs, {}), replacement);
        QVERIFY(rounds.round());
        QVERIFY(!rounds.round());
    }
    ReplaceRounds rounds(text + u"abc"_qs, TextSearch(u"ab"_qs, {}), u"abb"_qs);
    QVERIFY_THROWS_EXCEPTION(RuntimeError, (void)rounds.round());
}

void tst_ReplaceRounds::longTextTakesLittleTime()
{
    const QString text = u"a12"_qs.repeated(10'000);
    ReplaceRounds rounds(text, TextSearch(u"a"_qs, {}), u"bb"_qs);
    QElapsedTimer clock;
    clock.start();
    while (rounds.round()) {
    }
    QCOMPARE(rounds.count(), 10'000);
    QCOMPARE(rounds.edits().size(), 10'000);
    QVERIFY2(clock.elapsed() < 500, qPrintable(u"%1 ms"_qs.arg(clock.elapsed())));
}

QTEST_MAIN(tst_ReplaceRounds)
#include "tst_replacerounds.moc"
