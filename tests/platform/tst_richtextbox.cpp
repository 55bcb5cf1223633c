#include "platform/RichTextBox.h"

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>

namespace {

/// A text and a selection as the control's user sees them, in a plain string.
struct Model
{
    QString text;
    int start = 0;
    int length = 0;

    /// Between CR and LF there is no place: the one before them.
    [[nodiscard]] int place(int position) const
    {
        const int inside = std::clamp(position, 0, int(text.size()));
        const bool splits = inside > 0 && inside < text.size() && text[inside - 1] == u'\r';
        return splits ? inside - 1 : inside;
    }

    void select(int newStart, int newLength)
    {
        start = place(newStart);
        length = place(start + std::max(newLength, 0)) - start;
    }

    void replace(const QString &with)
    {
        text.replace(start, length, with);
        start += int(with.size());
        length = 0;
    }
};

/// A random text with every character that the control treats in a way of its own.
QString randomText(QRandomGenerator &random, int longest)
{
    static const QStringList pieces = {u"a"_qs,       u"B"_qs,  u"word"_qs, u" "_qs,    u"\r\n"_qs,
                                       u"\r\n"_qs,    u"\v"_qs, u"\f"_qs,   u"\xA0"_qs, u"\xAD"_qs,
                                       u"\u2028x"_qs, u"😀"_qs,  u"\t"_qs,   u"é"_qs,    u"\x81"_qs};
    QString text;
    for (int i = random.bounded(longest + 1); i > 0; --i)
        text += pieces[random.bounded(int(pieces.size()))];
    return text.replace(u'\u2028', u'\v');
}

} // namespace

class tst_RichTextBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textReadsBack_data();
    void textReadsBack();
    void positions_data();
    void positions();
    void settingTextSelectsNothing();
    void replacedTextKeepsItsPlacesFormat();
    void replacedTextEndsAtTheCaret();
    void find_data();
    void find();
    void findSelectsOnlyWhatItFinds();
    void previousMatchesComeFromNarrowRanges();
    void changesAreReported();
    void selectionMovesAreReportedOnce();
    void textOfManyParagraphs();
    void randomEdits();
};

void tst_RichTextBox::textReadsBack_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const auto same = [](const char *name, const QString &text) {
        QTest::newRow(name) << text << text;
    };
    same("empty", {});
    same("letters", u"letters"_qs);
    same("CR LF", u"one\r\ntwo\r\n\r\nthree\r\n"_qs);
    same("soft line break", u"one\vtwo"_qs);
    same("page break", u"one\ftwo\r\n\fthree"_qs);
    same("no-break space", u"a\xA0z"_qs);
    same("soft hyphen", u"a\xADz\xAD\xAD"_qs);
    same("tab", u"a\tz"_qs);
    same("unassigned bytes", u"\x81\x8D\x8F\x90\x9D"_qs);
    same("beyond the base plane", u"a😀z"_qs);
    same("NUL and control characters", QString::fromUtf16(u"a\0\x01\x1Fz", 5));
    same("spaces at the ends", u"  a  "_qs);
    same("combining", u"e\u0301"_qs);
    QTest::newRow("LF") << u"one\ntwo"_qs << u"one\r\ntwo"_qs;
    QTest::newRow("CR") << u"one\rtwo"_qs << u"one\r\ntwo"_qs;
    QTest::newRow("LF CR") << u"one\n\rtwo"_qs << u"one\r\n\r\ntwo"_qs;
    QTest::newRow("paragraph separator") << u"one\u2029two"_qs << u"one\r\ntwo"_qs;
    QTest::newRow("line separator") << u"one\u2028two"_qs << u"one\vtwo"_qs;
    QTest::newRow("object replacement") << u"a\uFFFCz"_qs << u"a\uFFFDz"_qs;
    QTest::newRow("frame marks") << QString(QChar(0xFDD0)) + QChar(0xFDD1) << u"\uFFFD\uFFFD"_qs;
}

void tst_RichTextBox::textReadsBack()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    RichTextBox box;
    box.setText(text);
    QCOMPARE(box.Text(), expected);
    QCOMPARE(box.TextLength(), int(expected.size()));
    box.setSelLength(box.TextLength());
    QCOMPARE(box.SelText(), expected);
    box.setSelText(u"before"_qs);
    QCOMPARE(box.Text(), u"before"_qs);
    box.setSelText(text);
    QCOMPARE(box.Text(), u"before"_qs + expected);
}

void tst_RichTextBox::positions_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("selStart");
    QTest::addColumn<QString>("selText");
    // "ab CR LF cd CR LF CR LF e": 0 to 9
    QTest::newRow("start") << 0 << 0 << 0 << QString();
    QTest::newRow("first paragraph") << 0 << 2 << 0 << u"ab"_qs;
    QTest::newRow("to the middle of a break") << 0 << 3 << 0 << u"ab"_qs;
    QTest::newRow("over a break") << 1 << 4 << 1 << u"b\r\nc"_qs;
    QTest::newRow("from the middle of a break") << 3 << 2 << 2 << u"\r\n"_qs;
    QTest::newRow("empty paragraph") << 8 << 2 << 8 << u"\r\n"_qs;
    QTest::newRow("to the end") << 4 << 7 << 4 << u"cd\r\n\r\ne"_qs;
    QTest::newRow("beyond the end") << 10 << 100 << 10 << u"e"_qs;
    QTest::newRow("far beyond the end") << 10 << INT_MAX << 10 << u"e"_qs;
    QTest::newRow("outside, after") << INT_MAX << 1 << 11 << QString();
    QTest::newRow("outside, before") << INT_MIN << 1 << 0 << u"a"_qs;
    QTest::newRow("negative length") << 4 << INT_MIN << 4 << QString();
}

void tst_RichTextBox::positions()
{
    QFETCH(int, start);
    QFETCH(int, length);
    QFETCH(int, selStart);
    QFETCH(QString, selText);
    RichTextBox box;
    box.setText(u"ab\r\ncd\r\n\r\ne"_qs);
    box.setSelStart(start);
    box.setSelLength(length);
    QCOMPARE(box.SelStart(), selStart);
    QCOMPARE(box.SelText(), selText);
    QCOMPARE(box.SelLength(), int(selText.size()));
    box.setSelStart(selStart);
    QCOMPARE(box.SelLength(), 0);
}

void tst_RichTextBox::settingTextSelectsNothing()
{
    RichTextBox box;
    box.setText(u"one\r\ntwo"_qs);
    box.setSelStart(2);
    box.setSelLength(4);
    box.setText(u"three"_qs);
    QCOMPARE(box.SelStart(), 0);
    QCOMPARE(box.SelLength(), 0);
}

void tst_RichTextBox::replacedTextKeepsItsPlacesFormat()
{
    RichTextBox box;
    box.setText(u"plain bold"_qs);
    box.setSelStart(6);
    box.setSelLength(4);
    box.setFontWeight(QFont::Bold);
    box.setSelStart(8);
    box.setSelText(u"X\r\nY"_qs);
    QCOMPARE(box.Text(), u"plain boX\r\nYld"_qs);
    QCOMPARE(box.fontWeight(), int(QFont::Bold));
    box.setSelStart(8);
    box.setSelLength(2);
    QCOMPARE(box.fontWeight(), int(QFont::Bold));
    box.setSelStart(3);
    QCOMPARE(box.fontWeight(), int(QFont::Normal));
}

void tst_RichTextBox::replacedTextEndsAtTheCaret()
{
    RichTextBox box;
    box.setText(u"abcd"_qs);
    box.setSelStart(1);
    box.setSelLength(2);
    box.setSelText(u"x\ny"_qs);
    QCOMPARE(box.Text(), u"ax\r\nyd"_qs);
    QCOMPARE(box.SelStart(), 5);
    QCOMPARE(box.SelLength(), 0);
    box.setSelLength(1);
    box.setSelText({});
    QCOMPARE(box.Text(), u"ax\r\ny"_qs);
}

void tst_RichTextBox::find_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("sought");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::addColumn<FindFlags>("flags");
    QTest::addColumn<int>("position");
    const FindFlags none;
    const QString text = u"Ring ring\r\nringing Ring"_qs;
    QTest::newRow("first") << text << u"ring"_qs << 0 << 100 << none << 0;
    QTest::newRow("from its own start") << text << u"ring"_qs << 5 << 100 << none << 5;
    QTest::newRow("after a start") << text << u"ring"_qs << 1 << 100 << none << 5;
    QTest::newRow("case") << text << u"ring"_qs << 0 << 100 << FindFlags(FindFlag::MatchCase) << 5;
    QTest::newRow("word") << text << u"ring"_qs << 6 << 100 << FindFlags(FindFlag::WholeWord) << 19;
    QTest::newRow("word and case")
        << text << u"Ring"_qs << 1 << 100 << (FindFlag::WholeWord | FindFlag::MatchCase) << 19;
    QTest::newRow("none") << text << u"rung"_qs << 0 << 100 << none << -1;
    QTest::newRow("empty text sought") << text << QString() << 0 << 100 << none << -1;
    QTest::newRow("empty text") << QString() << u"a"_qs << 0 << 0 << none << -1;
    QTest::newRow("begins at the end") << text << u"Ring"_qs << 1 << 5 << none << -1;
    QTest::newRow("begins before the end") << text << u"Ring"_qs << 1 << 6 << none << 5;
    QTest::newRow("empty range") << text << u"Ring"_qs << 5 << 5 << none << -1;
    QTest::newRow("reversed range") << text << u"Ring"_qs << 9 << 0 << none << -1;
    QTest::newRow("negative start") << text << u"Ring"_qs << INT_MIN << 1 << none << 0;
    QTest::newRow("start beyond") << text << u"Ring"_qs << INT_MAX << INT_MAX << none << -1;
    QTest::newRow("over a paragraph's end") << text << u"ring\r\nring"_qs << 1 << 100 << none << 5;
    QTest::newRow("LF over a paragraph's end") << text << u"g\nr"_qs << 0 << 100 << none << 8;
    QTest::newRow("from between CR and LF") << u"a\r\nb"_qs << u"\n"_qs << 2 << 9 << none << -1;
    QTest::newRow("soft line break") << u"a\vb"_qs << u"A\vB"_qs << 0 << 9 << none << 0;
    QTest::newRow("soft hyphen") << u"a\xADz"_qs << u"\xADZ"_qs << 0 << 9 << none << 1;
    QTest::newRow("no-break space is no space") << u"a\xA0 z"_qs << u" "_qs << 0 << 9 << none << 2;
    QTest::newRow("overlapping") << u"aaa"_qs << u"aa"_qs << 1 << 9 << none << 1;
    const FindFlags word = FindFlag::WholeWord;
    QTest::newRow("digits join words") << u"a1 a"_qs << u"a"_qs << 0 << 9 << word << 3;
    QTest::newRow("underline parts words") << u"_a_"_qs << u"a"_qs << 0 << 9 << word << 1;
    QTest::newRow("letters of any kind") << u"éa aé a"_qs << u"a"_qs << 0 << 9 << word << 6;
    QTest::newRow("word after many") << u"aaaa a"_qs << u"a"_qs << 0 << 9 << word << 5;
    QTest::newRow("folding") << u"ÉCOUTE"_qs << u"écoute"_qs << 0 << 9 << none << 0;
    QTest::newRow("simple folding") << u"Straße"_qs << u"strasse"_qs << 0 << 9 << none << -1;
    QTest::newRow("not a pattern") << u"a.b"_qs << u"a?b"_qs << 0 << 9 << none << -1;
    QTest::newRow("letter beyond the base plane") << u"𐐀a a"_qs << u"a"_qs << 0 << 9 << word << 4;
}

void tst_RichTextBox::find()
{
    QFETCH(QString, text);
    QFETCH(QString, sought);
    QFETCH(int, start);
    QFETCH(int, end);
    QFETCH(FindFlags, flags);
    QFETCH(int, position);
    RichTextBox box;
    box.setText(text);
    QCOMPARE(box.find(sought, start, end, flags), position);
    if (position >= 0) {
        QCOMPARE(box.SelStart(), position);
        QCOMPARE(box.SelText().toCaseFolded(), QString(sought)
                                                   .replace(u"\r\n"_qs, u"\n"_qs)
                                                   .replace(u"\n"_qs, u"\r\n"_qs)
                                                   .toCaseFolded());
    }
}

void tst_RichTextBox::findSelectsOnlyWhatItFinds()
{
    RichTextBox box;
    box.setText(u"one two three"_qs);
    box.setSelStart(4);
    box.setSelLength(3);
    QCOMPARE(box.find(u"four"_qs, 0, box.TextLength()), -1);
    QCOMPARE(box.SelText(), u"two"_qs);
    QCOMPARE(box.find(u"three"_qs, 0, box.TextLength()), 8);
    QCOMPARE(box.SelText(), u"three"_qs);
}

void tst_RichTextBox::previousMatchesComeFromNarrowRanges()
{
    RichTextBox box;
    box.setText(u"x\r\n? y ? z"_qs);
    QList<int> found;
    for (int i = box.TextLength(); i >= 0; --i) {
        if (box.find(u"?"_qs, i, i + 1, FindFlag::MatchCase) >= 0)
            found += i;
    }
    QCOMPARE(found, (QList<int>{7, 3}));
}

void tst_RichTextBox::changesAreReported()
{
    RichTextBox box;
    const QSignalSpy changed(&box, &RichTextBox::changed);
    box.setText(u"text"_qs);
    QVERIFY(!changed.isEmpty());
    const qsizetype before = changed.size();
    box.setSelLength(2);
    QCOMPARE(box.find(u"x"_qs, 0, 4), 2);
    QCOMPARE(changed.size(), before);
    box.setSelText(u"s"_qs);
    QCOMPARE(changed.size(), before + 1);
}

void tst_RichTextBox::selectionMovesAreReportedOnce()
{
    RichTextBox box;
    box.setText(u"one two"_qs);
    const QSignalSpy moved(&box, &RichTextBox::selectionMoved);
    box.setSelStart(4);
    QCOMPARE(moved.size(), 1);
    box.setSelLength(3);
    QCOMPARE(moved.size(), 2);
    box.setSelLength(3);
    QCOMPARE(moved.size(), 2);
    box.setSelStart(4);
    QCOMPARE(moved.size(), 3);
    QCOMPARE(box.find(u"one"_qs, 0, 9), 0);
    QCOMPARE(moved.size(), 4);
}

void tst_RichTextBox::textOfManyParagraphs()
{
    constexpr int paragraphs = 20000;
    RichTextBox box;
    box.setText(u"ab\r\n"_qs.repeated(paragraphs));
    QCOMPARE(box.TextLength(), paragraphs * 4);
    for (int i = 0; i < paragraphs; ++i) {
        QCOMPARE(box.find(u"b"_qs, i * 4, i * 4 + 4), i * 4 + 1);
        QCOMPARE(box.SelStart(), i * 4 + 1);
    }
}

void tst_RichTextBox::randomEdits()
{
    const auto seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    RichTextBox box;
    Model model;
    for (int step = 0; step < 3000; ++step) {
        const int start = random.bounded(-2, int(model.text.size()) + 3);
        const int length = random.bounded(-1, 12);
        const QString text = randomText(random, 6);
        switch (random.bounded(10)) {
        case 0:
            box.setText(text);
            model = {.text = text};
            break;
        case 1: {
            const QString whole = model.text;
            const int found = box.find(text, start, start + 40);
            const qsizetype expected =
                text.isEmpty() ? -1 : whole.indexOf(text, std::max(start, 0), Qt::CaseInsensitive);
            QCOMPARE(found, expected < std::max(start + 40, 0) ? int(expected) : -1);
            if (found >= 0)
                model.select(found, int(text.size()));
            break;
        }
        default:
            box.setSelStart(start);
            box.setSelLength(length);
            model.select(start, 0);
            model.select(model.start, length);
            QCOMPARE(box.SelText(), model.text.mid(model.start, model.length));
            box.setSelText(text);
            model.replace(text);
            break;
        }
        QCOMPARE(box.Text(), model.text);
        QCOMPARE(box.SelStart(), model.start);
        QCOMPARE(box.SelLength(), model.length);
        QCOMPARE(box.TextLength(), int(model.text.size()));
    }
}

QTEST_MAIN(tst_RichTextBox)
#include "tst_richtextbox.moc"
