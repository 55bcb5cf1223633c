#include "editor/JournalFolder.h"
#include "editor/RtfUndoJournal.h"
#include "support/EditorFixture.h"
#include "support/ModalDialog.h"

#include <QFontDialog>
#include <QRandomGenerator>
#include <QTemporaryDir>

namespace {

const QString Text = QStringLiteral("The quick brown fox\r\n\r\njumps over");

using Command = void (FormatCommands::*)();
using Switch = std::optional<bool> SelectionFormat::*;

} // namespace

Q_DECLARE_METATYPE(Command)
Q_DECLARE_METATYPE(Switch)
Q_DECLARE_METATYPE(Alignment)

class tst_FormatCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void switches_data()
    {
        QTest::addColumn<Command>("command");
        QTest::addColumn<Switch>("attribute");
        QTest::newRow("bold") << &FormatCommands::toggleBold << &SelectionFormat::bold;
        QTest::newRow("italic") << &FormatCommands::toggleItalic << &SelectionFormat::italic;
        QTest::newRow("underline")
            << &FormatCommands::toggleUnderline << &SelectionFormat::underline;
        QTest::newRow("bullet") << &FormatCommands::toggleBulletedList << &SelectionFormat::bullet;
    }

    void switches()
    {
        QFETCH(Command, command);
        QFETCH(Switch, attribute);
        EditorFixture editor(Text);
        editor.select(4, 5);
        QCOMPARE(editor.source.SelFormat().*attribute, false);
        (editor.format.*command)();
        QCOMPARE(editor.source.SelFormat().*attribute, true);
        QCOMPARE(editor.journal.recorded, QList{PaneCode::Source});
        editor.select(0, 32);
        QVERIFY(!(editor.source.SelFormat().*attribute)); // mixed
        (editor.format.*command)();
        QCOMPARE(editor.source.SelFormat().*attribute, true);
        (editor.format.*command)();
        QCOMPARE(editor.source.SelFormat().*attribute, false);
        QCOMPARE(editor.source.Text(), Text);
        QCOMPARE(editor.records(), 3);
    }

    void switchesSetWhatIsTypedNext_data() { switches_data(); }
    void switchesSetWhatIsTypedNext()
    {
        QFETCH(Command, command);
        QFETCH(Switch, attribute);
        EditorFixture editor(Text);
        editor.select(3, 0);
        (editor.format.*command)();
        QCOMPARE(editor.source.SelFormat().*attribute, true);
        QTest::keyClicks(&editor.source, QStringLiteral("xy"));
        editor.select(3, 2);
        QCOMPARE(editor.source.SelFormat().*attribute, true);
        QCOMPARE(editor.records(), 1);
    }

    void anEmptyParagraphKeepsItsLook()
    {
        EditorFixture editor;
        editor.format.setFontSize(QStringLiteral("31"));
        editor.format.toggleItalic();
        QTest::keyClicks(&editor.source, QStringLiteral("a\b"));
        editor.source.setSelStart(0);
        QTest::keyClicks(&editor.source, QStringLiteral("b"));
        editor.select(0, 1);
        QCOMPARE(editor.source.SelFormat().fontSize, 31);
        QCOMPARE(editor.source.SelFormat().italic, true);
    }

    void nothingHappensWithoutAnActivePane()
    {
        EditorFixture editor(Text);
        editor.select(0, 5);
        const QByteArray before = editor.source.TextRTF();
        for (const PaneCode none : {PaneCode::None, PaneCode::Both, PaneCode(7)}) {
            editor.activate(none);
            editor.format.toggleBold();
            editor.format.toggleItalic();
            editor.format.toggleUnderline();
            editor.format.makeLarger();
            editor.format.makeSmaller();
            editor.format.setAlignment(Alignment::Right);
            editor.format.toggleBulletedList();
            editor.format.setCharOffset(30, OffsetBase::PresentOffset);
            editor.format.setFontName(QStringLiteral("Arial"));
            editor.format.setFontSize(QStringLiteral("30"));
            editor.format.chooseFont(&editor.window);
        }
        QCOMPARE(editor.source.TextRTF(), before);
        QCOMPARE(editor.records(), 0);
    }

    void theActivePaneAlone()
    {
        EditorFixture editor(Text);
        editor.target.setText(QStringLiteral("1Rx#6"));
        editor.target.setSelLength(5);
        editor.select(0, 5);
        editor.activate(PaneCode::Target);
        editor.format.toggleBold();
        QCOMPARE(editor.target.SelFormat().bold, true);
        QCOMPARE(editor.source.SelFormat().bold, false);
        QCOMPARE(editor.journal.recorded, QList{PaneCode::Target});
    }

    void steps_data()
    {
        QTest::addColumn<double>("size");
        QTest::addColumn<double>("larger");
        QTest::addColumn<double>("smaller");
        QTest::newRow("ordinary") << 12.0 << 14.0 << 10.0;
        QTest::newRow("half points") << 10.5 << 12.5 << 8.5;
        QTest::newRow("almost the largest") << 1636.0 << 1638.0 << 1634.0;
        QTest::newRow("one below") << 1637.0 << 1637.0 << 1635.0;
        QTest::newRow("the largest") << 1638.0 << 1638.0 << 1636.0;
        QTest::newRow("almost the smallest") << 3.0 << 5.0 << 1.0;
        QTest::newRow("two") << 2.0 << 4.0 << 2.0;
        QTest::newRow("the smallest") << 1.0 << 3.0 << 1.0;
    }

    void steps()
    {
        QFETCH(double, size);
        EditorFixture editor(Text);
        editor.select(0, 5);
        editor.source.setSelFontSize(size);
        editor.format.makeLarger();
        QTEST(*editor.source.SelFormat().fontSize, "larger");
        editor.source.setSelFontSize(size);
        editor.format.makeSmaller();
        QTEST(*editor.source.SelFormat().fontSize, "smaller");
        QCOMPARE(editor.records(), 2);
    }

    void mixedSizesStay()
    {
        EditorFixture editor(Text);
        editor.formatted(2, 3, [](RichTextBox &pane) { pane.setSelFontSize(20); });
        editor.select(0, 5);
        const QByteArray before = editor.source.TextRTF();
        editor.format.makeLarger();
        editor.format.makeSmaller();
        QCOMPARE(editor.source.TextRTF(), before);
        QCOMPARE(editor.records(), 2);
    }

    void offsetsStack()
    {
        EditorFixture editor(Text);
        const auto offset = [&] { return editor.source.SelFormat().charOffset; };
        editor.select(4, 5);
        editor.format.setCharOffset(30, OffsetBase::PresentOffset);
        editor.format.setCharOffset(30, OffsetBase::PresentOffset);
        QCOMPARE(offset(), 60);
        editor.journal.restore(PaneCode::Source, editor.source.TextRTF());
        editor.select(4, 5);
        QCOMPARE(offset(), 60);
        editor.format.setCharOffset(-30, OffsetBase::PresentOffset);
        QCOMPARE(offset(), 30);
        editor.format.setCharOffset(0, OffsetBase::Baseline);
        QCOMPARE(offset(), 0);
        editor.format.setCharOffset(-30, OffsetBase::PresentOffset);
        QCOMPARE(offset(), -30);
        QCOMPARE(editor.records(), 5);
    }

    void mixedOffsetsMoveTogether()
    {
        EditorFixture editor(Text);
        editor.formatted(0, 2, [](RichTextBox &pane) { pane.setSelCharOffset(40); });
        editor.select(0, 4);
        editor.format.setCharOffset(30, OffsetBase::PresentOffset);
        editor.select(0, 2);
        QCOMPARE(editor.source.SelFormat().charOffset, 70);
        editor.select(2, 2);
        QCOMPARE(editor.source.SelFormat().charOffset, 30);
        editor.select(4, 2);
        QCOMPARE(editor.source.SelFormat().charOffset, 0);
    }

    void offsetsStayOnThePage()
    {
        EditorFixture editor(Text);
        editor.select(0, 1);
        for (int i = 0; i < 3; ++i)
            editor.format.setCharOffset(32'000, OffsetBase::PresentOffset);
        QCOMPARE(editor.source.SelFormat().charOffset, 31'680);
    }

    void normalUndoesSuperscriptsOfFiles()
    {
        EditorFixture editor;
        editor.journal.restore(PaneCode::Source, "{\\rtf1\\ansi a{\\super b}\\par}");
        editor.select(0, 2);
        editor.format.setCharOffset(0, OffsetBase::Baseline);
        QVERIFY(!editor.source.TextRTF().contains("\\super"));
    }

    void alignments_data()
    {
        QTest::addColumn<Alignment>("alignment");
        QTest::newRow("left") << Alignment::Left;
        QTest::newRow("right") << Alignment::Right;
        QTest::newRow("center") << Alignment::Center;
    }

    void alignments()
    {
        QFETCH(Alignment, alignment);
        EditorFixture editor(Text);
        editor.formatted(0, 0, [](RichTextBox &pane) { pane.setSelAlignment(Alignment::Right); });
        editor.formatted(25, 0, [](RichTextBox &pane) { pane.setSelAlignment(Alignment::Center); });
        editor.select(0, 32);
        editor.format.setAlignment(alignment);
        QCOMPARE(editor.source.SelFormat().alignment, alignment);
        editor.select(25, 0);
        QCOMPARE(editor.source.SelFormat().alignment, alignment);
        QCOMPARE(editor.records(), 1);
    }

    void fontNames()
    {
        EditorFixture editor(Text);
        editor.select(0, 5);
        editor.format.setFontName(QStringLiteral("Not Installed"));
        QCOMPARE(editor.source.SelFormat().fontName, QStringLiteral("Not Installed"));
        editor.format.setFontName(QStringLiteral("Not Installed"));
        QCOMPARE(editor.records(), 2); // also for the font already in use
        editor.format.setFontName({});
        QCOMPARE(editor.source.SelFormat().fontName, QStringLiteral("Not Installed"));
        QCOMPARE(editor.records(), 3);
        editor.select(0, 10);
        editor.format.setFontName(QStringLiteral("Not Installed"));
        QCOMPARE(editor.source.SelFormat().fontName, QStringLiteral("Not Installed"));
    }

    void fontSizes_data()
    {
        QTest::addColumn<QString>("entered");
        QTest::addColumn<double>("size"); // 12 at first
        QTest::newRow("whole") << QStringLiteral("20") << 20.0;
        QTest::newRow("point") << QStringLiteral("10.5") << 10.5;
        QTest::newRow("comma") << QStringLiteral("10,5") << 10.5;
        QTest::newRow("spaces") << QStringLiteral(" 8 ") << 8.0;
        QTest::newRow("smallest") << QStringLiteral("1") << 1.0;
        QTest::newRow("largest") << QStringLiteral("1638") << 1638.0;
        QTest::newRow("too small") << QStringLiteral("0.5") << 12.0;
        QTest::newRow("zero") << QStringLiteral("0") << 12.0;
        QTest::newRow("negative") << QStringLiteral("-12") << 12.0;
        QTest::newRow("too large") << QStringLiteral("1639") << 12.0;
        QTest::newRow("far too large") << QString(400, u'9') << 12.0;
        QTest::newRow("empty") << QString() << 12.0;
        QTest::newRow("no number") << QStringLiteral("big") << 12.0;
        QTest::newRow("not quite a number") << QStringLiteral("12pt") << 12.0;
        QTest::newRow("exponent") << QStringLiteral("1e2") << 12.0;
        QTest::newRow("none") << QStringLiteral("nan") << 12.0;
        QTest::newRow("the same") << QStringLiteral("12") << 12.0;
    }

    void fontSizes()
    {
        QFETCH(QString, entered);
        EditorFixture editor(Text);
        editor.select(0, 5);
        editor.source.setSelFontSize(12);
        editor.format.setFontSize(entered);
        QTEST(*editor.source.SelFormat().fontSize, "size");
        QCOMPARE(editor.source.Text(), Text);
        QCOMPARE(editor.records(), 1);
    }

    void theFontDialogIsOneStep()
    {
        EditorFixture editor(Text);
        editor.formatted(0, 2, [](RichTextBox &pane) {
            pane.setSelFontName(QStringLiteral("DejaVu Serif"));
            pane.setSelFontSize(17);
            pane.setSelItalic(true);
        });
        editor.select(0, 5);
        QFont offered;
        const ModalDialog user("fontDialog", [&offered](QDialog &opened) {
            auto &dialog = dynamic_cast<QFontDialog &>(opened);
            offered = dialog.currentFont();
            QFont font(QStringLiteral("DejaVu Sans"), 22, QFont::Bold);
            font.setUnderline(true);
            dialog.setCurrentFont(font);
            QTest::keyClick(&dialog, Qt::Key_Return);
        });
        editor.format.chooseFont(&editor.window);
        QCOMPARE(user.uses(), 1);
        QCOMPARE(offered.family(), QStringLiteral("DejaVu Serif"));
        QCOMPARE(offered.pointSizeF(), 17);
        QVERIFY(offered.italic());
        const SelectionFormat &format = editor.source.SelFormat();
        QCOMPARE(format.fontName, QStringLiteral("DejaVu Sans"));
        QCOMPARE(format.fontSize, 22);
        QCOMPARE(format.bold, true);
        QCOMPARE(format.italic, false);
        QCOMPARE(format.underline, true);
        QCOMPARE(editor.records(), 1);
    }

    void theFontDialogCancelled()
    {
        EditorFixture editor(Text);
        editor.select(0, 5);
        const QByteArray before = editor.source.TextRTF();
        const ModalDialog user("fontDialog",
                               [](QDialog &dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
        editor.format.chooseFont(&editor.window);
        QCOMPARE(user.uses(), 1);
        QCOMPARE(editor.source.TextRTF(), before);
        QCOMPARE(editor.records(), 0);
    }

    void randomCommandsUndoneAndRedone();

private:
    static void randomCommand(RichTextBox &pane, FormatCommands &format, QRandomGenerator &random);
};

void tst_FormatCommands::randomCommand(RichTextBox &pane, FormatCommands &format,
                                       QRandomGenerator &random)
{
    const QString fonts[] = {QStringLiteral("DejaVu Sans"), QStringLiteral("Tengwar Quenya"),
                             QStringLiteral("Symbol")};
    const int length = pane.TextLength();
    pane.setSelStart(random.bounded(length + 1));
    pane.setSelLength(random.bounded(3) == 0 ? 0 : random.bounded(length));
    switch (random.bounded(11)) {
    case 0:
        return format.toggleBold();
    case 1:
        return format.toggleItalic();
    case 2:
        return format.toggleUnderline();
    case 3:
        return format.makeLarger();
    case 4:
        return format.makeSmaller();
    case 5:
        return format.setAlignment(Alignment(random.bounded(3)));
    case 6:
        return format.toggleBulletedList();
    case 7:
        return format.setCharOffset(random.bounded(2) == 0 ? 30 : -30, OffsetBase::PresentOffset);
    case 8:
        return format.setCharOffset(0, OffsetBase::Baseline);
    case 9:
        return format.setFontName(fonts[random.bounded(3)]);
    default:
        return format.setFontSize(QString::number(random.bounded(0, 40) / 2.0));
    }
}

void tst_FormatCommands::randomCommandsUndoneAndRedone()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    EditorFixture editor(QStringLiteral("One paragraph,\r\nanother with \u00a0 and \u00ad,\r\n\r\n"
                                        "a soft\vbreak\r\n\r\nand a last line"));
    const QString text = editor.source.Text();
    const QTemporaryDir temporary;
    const JournalFolder folder(temporary.filePath(QStringLiteral("program")),
                               temporary.filePath(QStringLiteral("cache")));
    RtfUndoJournal journal({editor.window, editor.source, editor.target, folder});
    FormatCommands format(editor.state, editor.panes, journal);

    constexpr int commands = 200;
    QList<QByteArray> states;
    for (int i = 0; i < commands; ++i) {
        states += editor.source.TextRTF();
        randomCommand(editor.source, format, random);
        QCOMPARE(journal.UndoPos(PaneCode::Source), i + 1);
    }
    states += editor.source.TextRTF();

    for (int i = commands - 1; i >= 0; --i) {
        journal.UndoLast(PaneCode::Source);
        QCOMPARE(editor.source.TextRTF(), states[i]);
    }
    QCOMPARE(editor.source.Text(), text);
    for (int i = 1; i <= commands; ++i) {
        journal.RedoLast(PaneCode::Source);
        QCOMPARE(editor.source.TextRTF(), states[i]);
    }
    QCOMPARE(editor.source.Text(), text);
}

QTEST_MAIN(tst_FormatCommands)
#include "tst_formatcommands.moc"
