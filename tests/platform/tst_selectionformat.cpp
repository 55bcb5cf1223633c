#include "platform/RichTextBox.h"

#include "engine/RuntimeError.h"
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextList>

namespace {

/// The formatting of a text in plain arrays: what each character and each paragraph has.
struct Model
{
    struct Character
    {
        QString fontName = u"Model"_qs;
        double fontSize = 12;
        bool bold = false;
        bool italic = false;
        bool underline = false;
        int charOffset = 0;
    };
    struct Paragraph
    {
        Alignment alignment = Alignment::Left;
        bool bullet = false;
        int indent = 0;
        int hangingIndent = 0;
        int rightIndent = 0;
        int bulletIndent = 0;
    };

    QString text;
    std::vector<Character> characters; ///< of CR and LF too
    std::vector<Paragraph> paragraphs;

    [[nodiscard]] int paragraphAt(int position) const
    {
        return int(QStringView(text).first(position).count(u'\n'));
    }

    /// The last paragraph that a selection touches: not one at whose start it ends, but for the
    /// empty one at the end of the text.
    [[nodiscard]] int lastParagraph(int start, int end) const
    {
        const bool endsAtAStart = end > start && end < text.size() && text[end - 1] == u'\n';
        return paragraphAt(end) - (endsAtAStart ? 1 : 0);
    }
};

template<typename Items, typename Member>
auto common(const Items &items, Member member)
    -> std::optional<std::decay_t<decltype(items.front().*member)>>
{
    for (const auto &item : items) {
        if (item.*member != items.front().*member)
            return std::nullopt;
    }
    return items.front().*member;
}

/// What the control should report for a selection that holds at least one letter.
SelectionFormat expectedFormat(const Model &model, int start, int length)
{
    std::vector<Model::Character> characters;
    for (int i = start; i < start + length; ++i) {
        if (model.text[i] != u'\r' && model.text[i] != u'\n')
            characters.push_back(model.characters[i]);
    }
    const std::vector<Model::Paragraph> paragraphs(
        model.paragraphs.begin() + model.paragraphAt(start),
        model.paragraphs.begin() + model.lastParagraph(start, start + length) + 1);
    return {common(characters, &Model::Character::fontName),
            common(characters, &Model::Character::fontSize),
            common(characters, &Model::Character::bold),
            common(characters, &Model::Character::italic),
            common(characters, &Model::Character::underline),
            common(characters, &Model::Character::charOffset),
            common(paragraphs, &Model::Paragraph::alignment),
            common(paragraphs, &Model::Paragraph::bullet),
            common(paragraphs, &Model::Paragraph::indent),
            common(paragraphs, &Model::Paragraph::hangingIndent),
            common(paragraphs, &Model::Paragraph::rightIndent),
            common(paragraphs, &Model::Paragraph::bulletIndent)};
}

/// Makes one random change to the control's selection and to the model's.
void changeAtRandom(QRandomGenerator &random, RichTextBox &box, Model &model)
{
    const int start = box.SelStart();
    const int end = start + box.SelLength();
    const auto characters = [&](auto change) {
        for (int i = start; i < end; ++i)
            change(model.characters[i]);
    };
    const auto paragraphs = [&](auto change) {
        for (int i = model.paragraphAt(start); i <= model.lastParagraph(start, end); ++i)
            change(model.paragraphs[i]);
    };
    const bool on = random.bounded(2) == 1;
    const int twips = 10 * random.bounded(-100, 100);
    const double points = random.bounded(2, 200) / 2.0;
    const QString name = u"Font %1"_qs.arg(random.bounded(3));
    const auto alignment = Alignment(random.bounded(3));
    switch (random.bounded(12)) {
    case 0:
        box.setSelFontName(name);
        return characters([&](auto &each) { each.fontName = name; });
    case 1:
        box.setSelFontSize(points);
        return characters([&](auto &each) { each.fontSize = points; });
    case 2:
        box.setSelBold(on);
        return characters([&](auto &each) { each.bold = on; });
    case 3:
        box.setSelItalic(on);
        return characters([&](auto &each) { each.italic = on; });
    case 4:
        box.setSelUnderline(on);
        return characters([&](auto &each) { each.underline = on; });
    case 5:
        box.setSelCharOffset(twips);
        return characters([&](auto &each) { each.charOffset = twips; });
    case 6:
        box.setSelAlignment(alignment);
        return paragraphs([&](auto &each) { each.alignment = alignment; });
    case 7:
        box.setSelBullet(on);
        return paragraphs([&](auto &each) { each.bullet = on; });
    case 8:
        box.setSelIndent(twips);
        return paragraphs([&](auto &each) { each.indent = twips; });
    case 9:
        box.setSelHangingIndent(twips);
        return paragraphs([&](auto &each) { each.hangingIndent = twips; });
    case 10:
        box.setSelRightIndent(twips);
        return paragraphs([&](auto &each) { each.rightIndent = twips; });
    default:
        box.setBulletIndent(std::abs(twips));
        return paragraphs([&](auto &each) { each.bulletIndent = std::abs(twips); });
    }
}

} // namespace

class tst_SelectionFormat : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void plainText();
    void mixedAttributes();
    void mixedParagraphs();
    void wholeLinesLeaveTheNextParagraphAlone();
    void emptyParagraphAtTheEndTakesPart();
    void caretTakesTheNextCharactersLook();
    void lookOfTheNextCharacter();
    void lookOfTheNextCharacterInAnEmptyText();
    void emptyParagraphsTakePart();
    void emptiedTextKeepsItsLook_data();
    void emptiedTextKeepsItsLook();
    void offsetsAreExact();
    void indents();
    void bulletsAppearAndGo();
    void backspaceEndsABullet();
    void enterContinuesABullet();
    void sizeOutOfRange_data();
    void sizeOutOfRange();
    void formattingIsAChange();
    void replacedSelectionKeepsItsFirstFormat();
    void randomChanges();
};

void tst_SelectionFormat::plainText()
{
    RichTextBox box;
    box.setText(u"text"_qs);
    box.setSelLength(4);
    const SelectionFormat &format = box.SelFormat();
    QCOMPARE(format.fontName, box.document()->defaultFont().family());
    QCOMPARE(format.fontSize, box.document()->defaultFont().pointSizeF());
    QCOMPARE(format.bold, false);
    QCOMPARE(format.italic, false);
    QCOMPARE(format.underline, false);
    QCOMPARE(format.charOffset, 0);
    QCOMPARE(format.alignment, Alignment::Left);
    QCOMPARE(format.bullet, false);
    QCOMPARE(format.indent, 0);
    QCOMPARE(format.hangingIndent, 0);
    QCOMPARE(format.rightIndent, 0);
    QCOMPARE(format.bulletIndent, 0);
}

void tst_SelectionFormat::mixedAttributes()
{
    RichTextBox box;
    box.setText(u"abcd"_qs);
    box.setSelStart(1);
    box.setSelLength(2);
    box.setSelBold(true);
    QCOMPARE(box.SelFormat().bold, true);
    box.setSelStart(0);
    box.setSelLength(2);
    QVERIFY(!box.SelFormat().bold);
    QCOMPARE(box.SelFormat().italic, false);
    box.setSelBold(true);
    QCOMPARE(box.SelFormat().bold, true);
    box.setSelStart(0);
    box.setSelLength(4);
    QVERIFY(!box.SelFormat().bold);
    box.setSelStart(0);
    box.setSelLength(3);
    QCOMPARE(box.SelFormat().bold, true);
}

void tst_SelectionFormat::mixedParagraphs()
{
    RichTextBox box;
    box.setText(u"a\r\nb\r\nc"_qs);
    box.setSelStart(3);
    box.setSelAlignment(Alignment::Center);
    QCOMPARE(box.SelFormat().alignment, Alignment::Center);
    box.setSelStart(0);
    QCOMPARE(box.SelFormat().alignment, Alignment::Left);
    box.setSelLength(4);
    QVERIFY(!box.SelFormat().alignment);
    box.setSelAlignment(Alignment::Right);
    QCOMPARE(box.SelFormat().alignment, Alignment::Right);
    box.setSelStart(6);
    QCOMPARE(box.SelFormat().alignment, Alignment::Left);
}

void tst_SelectionFormat::wholeLinesLeaveTheNextParagraphAlone()
{
    RichTextBox box;
    box.setText(u"one\r\ntwo\r\nthree"_qs);
    box.setSelLength(5); // as Shift+Down selects it
    box.setSelAlignment(Alignment::Center);
    box.setSelBullet(true);
    QCOMPARE(box.SelFormat().alignment, Alignment::Center);
    box.setSelStart(5);
    QCOMPARE(box.SelFormat().alignment, Alignment::Left);
    QCOMPARE(box.SelFormat().bullet, false);
    box.setSelAlignment(Alignment::Right); // the caret alone touches where it stands
    QCOMPARE(box.SelFormat().alignment, Alignment::Right);
}

void tst_SelectionFormat::emptyParagraphAtTheEndTakesPart()
{
    RichTextBox box;
    box.setText(u"one\r\n"_qs);
    box.selectAll();
    box.setSelAlignment(Alignment::Center);
    box.setSelStart(5);
    QCOMPARE(box.SelFormat().alignment, Alignment::Center);
}

void tst_SelectionFormat::caretTakesTheNextCharactersLook()
{
    RichTextBox box;
    box.setText(u"ab"_qs);
    box.setSelLength(1);
    box.setSelItalic(true);
    box.setSelStart(1);
    QCOMPARE(box.SelFormat().italic, true);
    box.setSelStart(2);
    QCOMPARE(box.SelFormat().italic, false);
}

void tst_SelectionFormat::lookOfTheNextCharacter()
{
    RichTextBox box;
    box.setText(u"ab"_qs);
    box.setSelStart(1);
    const QSignalSpy moved(&box, &RichTextBox::selectionMoved);
    box.setSelBold(true);
    QCOMPARE(moved.size(), 1);
    QCOMPARE(box.SelFormat().bold, true);
    box.setSelFontSize(30);
    QCOMPARE(box.SelFormat().bold, true);
    QTest::keyClicks(&box, u"xy"_qs);
    QCOMPARE(box.Text(), u"axyb"_qs);
    box.setSelStart(1);
    box.setSelLength(2);
    QCOMPARE(box.SelFormat().bold, true);
    QCOMPARE(box.SelFormat().fontSize, 30.0);
    box.setSelStart(0);
    box.setSelLength(1);
    QCOMPARE(box.SelFormat().bold, false);
}

void tst_SelectionFormat::lookOfTheNextCharacterInAnEmptyText()
{
    RichTextBox box;
    box.setSelFontName(u"Some font"_qs);
    box.setSelCharOffset(60);
    QTest::keyClicks(&box, u"x"_qs);
    box.setSelStart(0);
    box.setSelLength(1);
    QCOMPARE(box.SelFormat().fontName, u"Some font"_qs);
    QCOMPARE(box.SelFormat().charOffset, 60);
}

void tst_SelectionFormat::emptyParagraphsTakePart()
{
    RichTextBox box;
    box.setText(u"a\r\n\r\nb"_qs);
    box.selectAll();
    box.setSelFontSize(40);
    QCOMPARE(box.SelFormat().fontSize, 40.0);
    box.setSelStart(3);
    QCOMPARE(box.SelFormat().fontSize, 40.0);
    QTest::keyClicks(&box, u"x"_qs);
    QCOMPARE(box.SelFormat().fontSize, 40.0);
}

void tst_SelectionFormat::emptiedTextKeepsItsLook_data()
{
    QTest::addColumn<QList<Qt::Key>>("keys");
    QTest::newRow("replaced") << QList<Qt::Key>();
    QTest::newRow("Delete") << QList<Qt::Key>{Qt::Key_Delete};
    QTest::newRow("Backspace") << QList<Qt::Key>{Qt::Key_Backspace};
    QTest::newRow("one by one") << QList<Qt::Key>{Qt::Key_End, Qt::Key_Backspace,
                                                  Qt::Key_Backspace};
}

void tst_SelectionFormat::emptiedTextKeepsItsLook()
{
    QFETCH(QList<Qt::Key>, keys);
    RichTextBox box;
    box.setText(u"ab"_qs);
    box.selectAll();
    box.setSelFontName(u"Some font"_qs);
    box.setSelBold(true);
    if (keys.isEmpty())
        box.setSelText({});
    for (const Qt::Key key : keys)
        QTest::keyClick(&box, key);
    QCOMPARE(box.Text(), QString());
    QCOMPARE(box.SelFormat().fontName, u"Some font"_qs);
    QTest::keyClicks(&box, u"x"_qs);
    box.selectAll();
    QCOMPARE(box.SelFormat().fontName, u"Some font"_qs);
    QCOMPARE(box.SelFormat().bold, true);
}

void tst_SelectionFormat::offsetsAreExact()
{
    RichTextBox box;
    box.setText(u"ab"_qs);
    box.selectAll();
    for (int i = 1; i <= 4; ++i) {
        box.setSelCharOffset(box.SelFormat().charOffset.value_or(-1) + 30);
        QCOMPARE(box.SelFormat().charOffset, 30 * i);
        box.setSelFontSize(7 + i);
    }
    QCOMPARE(box.SelFormat().charOffset, 120);
}

void tst_SelectionFormat::indents()
{
    RichTextBox box;
    box.setText(u"a"_qs);
    box.setSelIndent(567);
    box.setSelHangingIndent(200);
    QCOMPARE(box.SelFormat().indent, 567);
    QCOMPARE(box.SelFormat().hangingIndent, 200);
    box.setSelIndent(100);
    QCOMPARE(box.SelFormat().indent, 100);
    QCOMPARE(box.SelFormat().hangingIndent, 200);
    const QTextBlockFormat laidOut = box.textCursor().blockFormat();
    QCOMPARE(laidOut.leftMargin(), 20.0);
    QCOMPARE(laidOut.textIndent(), -200 / 15.0);
}

void tst_SelectionFormat::bulletsAppearAndGo()
{
    RichTextBox box;
    box.setText(u"a\r\nb\r\nc"_qs);
    box.selectAll();
    box.setSelBullet(true);
    QCOMPARE(box.SelFormat().bullet, true);
    QVERIFY(box.document()->lastBlock().textList() != nullptr);
    box.setSelStart(3);
    box.setSelBullet(false);
    QCOMPARE(box.SelFormat().bullet, false);
    QVERIFY(box.textCursor().currentList() == nullptr);
    box.selectAll();
    QVERIFY(!box.SelFormat().bullet);
    QCOMPARE(box.Text(), u"a\r\nb\r\nc"_qs);
}

void tst_SelectionFormat::backspaceEndsABullet()
{
    RichTextBox box;
    box.setText(u"a\r\nb"_qs);
    box.selectAll();
    box.setSelBullet(true);
    box.setSelStart(3);
    QTest::keyClick(&box, Qt::Key_Backspace);
    QCOMPARE(box.Text(), u"a\r\nb"_qs);
    QCOMPARE(box.SelFormat().bullet, false);
    QVERIFY(box.textCursor().currentList() == nullptr);
    QTest::keyClick(&box, Qt::Key_Backspace);
    QCOMPARE(box.Text(), u"ab"_qs);
}

void tst_SelectionFormat::enterContinuesABullet()
{
    RichTextBox box;
    box.setText(u"a"_qs);
    box.setSelBullet(true);
    box.setSelStart(1);
    QTest::keyClick(&box, Qt::Key_Return);
    QTest::keyClicks(&box, u"b"_qs);
    QCOMPARE(box.Text(), u"a\r\nb"_qs);
    QCOMPARE(box.SelFormat().bullet, true);
    QVERIFY(box.textCursor().currentList() != nullptr);
}

void tst_SelectionFormat::sizeOutOfRange_data()
{
    QTest::addColumn<double>("points");
    QTest::addColumn<bool>("isTaken");
    QTest::newRow("smallest") << 1.0 << true;
    QTest::newRow("largest") << 1638.0 << true;
    QTest::newRow("half") << 10.5 << true;
    QTest::newRow("zero") << 0.0 << false;
    QTest::newRow("negative") << -12.0 << false;
    QTest::newRow("too large") << 1638.5 << false;
    QTest::newRow("no number") << qQNaN() << false;
}

void tst_SelectionFormat::sizeOutOfRange()
{
    QFETCH(double, points);
    QFETCH(bool, isTaken);
    RichTextBox box;
    box.setText(u"a"_qs);
    box.selectAll();
    box.setSelFontSize(20);
    bool wasTaken = true;
    try {
        box.setSelFontSize(points);
    } catch (const RuntimeError &) {
        wasTaken = false;
    }
    QCOMPARE(wasTaken, isTaken);
    QCOMPARE(box.SelFormat().fontSize, isTaken ? points : 20.0);
}

void tst_SelectionFormat::formattingIsAChange()
{
    RichTextBox box;
    box.setText(u"ab\r\ncd"_qs);
    box.selectAll();
    const QSignalSpy changed(&box, &RichTextBox::changed);
    box.setSelBold(true);
    QCOMPARE(changed.size(), 1);
    box.setSelAlignment(Alignment::Right);
    QCOMPARE(changed.size(), 2);
    box.setSelBullet(true);
    QCOMPARE(changed.size(), 3);
    QCOMPARE(box.SelText(), u"ab\r\ncd"_qs);
}

void tst_SelectionFormat::replacedSelectionKeepsItsFirstFormat()
{
    RichTextBox box;
    box.setText(u"abcd"_qs);
    box.setSelLength(2);
    box.setSelBold(true);
    box.setSelStart(1);
    box.setSelLength(3);
    box.setSelText(u"xyz"_qs);
    box.setSelStart(0);
    box.setSelLength(4);
    QCOMPARE(box.SelFormat().bold, true);
}

void tst_SelectionFormat::randomChanges()
{
    const auto seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"format.rtf"_qs);
    RichTextBox box;
    box.document()->setDefaultFont(QFont(u"Model"_qs, 12));
    Model model;
    model.text = u"one\xAD\r\ntwo three\r\n\r\nfour\vfive\r\nsix\xAD\xADseven"_qs;
    model.characters.resize(model.text.size());
    model.paragraphs.resize(model.paragraphAt(int(model.text.size())) + 1);
    box.setText(model.text);
    for (int step = 0; step < 1000; ++step) {
        box.setSelStart(random.bounded(box.TextLength()));
        box.setSelLength(1 + random.bounded(20));
        changeAtRandom(random, box, model);
        if (random.bounded(20) == 0) {
            box.SaveFile(file, FileType::RichText);
            box.LoadFile(file, FileType::RichText);
            QCOMPARE(box.Text(), model.text);
        }
        box.setSelStart(random.bounded(box.TextLength()));
        box.setSelLength(1 + random.bounded(40));
        if (box.SelText().contains(QRegularExpression(u"[a-z]"_qs)))
            QVERIFY(box.SelFormat() == expectedFormat(model, box.SelStart(), box.SelLength()));
    }
}

QTEST_MAIN(tst_SelectionFormat)
#include "tst_selectionformat.moc"
