#include "editor/FormatIndicator.h"
#include "support/EditorFixture.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>

namespace {

/// The controls of a window's formatting toolbar and status bar.
struct Indicator
{
    QComboBox cboFontName;
    QComboBox cboFontSize;
    QAction bold{nullptr}, italic{nullptr}, underline{nullptr};
    QAction larger{nullptr}, smaller{nullptr};
    QAction left{nullptr}, right{nullptr}, center{nullptr};
    QAction bullet{nullptr}, menuBullet{nullptr};
    QLabel SelText;
    FormatIndicator display{{.cboFontName = cboFontName,
                             .cboFontSize = cboFontSize,
                             .FormatBold = bold,
                             .FormatItalic = italic,
                             .FormatUnderline = underline,
                             .FormatLarger = larger,
                             .FormatSmaller = smaller,
                             .LeftAlign = left,
                             .RightAlign = right,
                             .CenterAlign = center,
                             .BulletedList = bullet,
                             .mnuFBulletedList = menuBullet,
                             .SelText = SelText}};

    Indicator()
    {
        cboFontName.setEditable(true);
        cboFontName.addItems({QStringLiteral("DejaVu Sans"), QStringLiteral("DejaVu Serif")});
        cboFontSize.setEditable(true);
        cboFontSize.addItems({QStringLiteral("12"), QStringLiteral("14")});
        for (QAction *action :
             {&bold, &italic, &underline, &left, &right, &center, &bullet, &menuBullet})
            action->setCheckable(true);
    }
};

QString look(const QAction &action)
{
    const bool mixed = action.property("mixed").toBool();
    return mixed                ? QStringLiteral("mixed")
           : action.isChecked() ? QStringLiteral("pressed")
                                : QStringLiteral("released");
}

using Set = void (RichTextBox::*)(bool);
using Button = QAction Indicator::*;

} // namespace

Q_DECLARE_METATYPE(Set)
Q_DECLARE_METATYPE(Button)
Q_DECLARE_METATYPE(Alignment)

class tst_FormatIndicator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void switches_data()
    {
        QTest::addColumn<Set>("set");
        QTest::addColumn<Button>("button");
        QTest::newRow("bold") << &RichTextBox::setSelBold << &Indicator::bold;
        QTest::newRow("italic") << &RichTextBox::setSelItalic << &Indicator::italic;
        QTest::newRow("underline") << &RichTextBox::setSelUnderline << &Indicator::underline;
        QTest::newRow("bullet") << &RichTextBox::setSelBullet << &Indicator::bullet;
    }

    void switches()
    {
        QFETCH(Set, set);
        QFETCH(Button, button);
        EditorFixture editor(QStringLiteral("one\r\ntwo"));
        Indicator shown;
        editor.formatted(0, 3, [set](RichTextBox &pane) { (pane.*set)(true); });
        shown.display.ShowFormat(editor.source);
        QCOMPARE(look(shown.*button), QStringLiteral("pressed"));
        editor.select(0, 8);
        shown.display.ShowFormat(editor.source);
        QCOMPARE(look(shown.*button), QStringLiteral("mixed"));
        QVERIFY(!(shown.*button).isChecked());
        editor.select(5, 3);
        shown.display.ShowFormat(editor.source);
        QCOMPARE(look(shown.*button), QStringLiteral("released"));
    }

    void theMenuShowsBullets()
    {
        EditorFixture editor(QStringLiteral("one\r\ntwo"));
        Indicator shown;
        editor.formatted(0, 3, [](RichTextBox &pane) { pane.setSelBullet(true); });
        shown.display.ShowFormat(editor.source);
        QVERIFY(shown.menuBullet.isChecked());
        editor.select(0, 8);
        shown.display.ShowFormat(editor.source);
        QVERIFY(!shown.menuBullet.isChecked());
    }

    void alignments_data()
    {
        QTest::addColumn<Alignment>("alignment");
        QTest::addColumn<Button>("pressed");
        QTest::newRow("left") << Alignment::Left << &Indicator::left;
        QTest::newRow("right") << Alignment::Right << &Indicator::right;
        QTest::newRow("center") << Alignment::Center << &Indicator::center;
    }

    void alignments()
    {
        QFETCH(Alignment, alignment);
        QFETCH(Button, pressed);
        EditorFixture editor(QStringLiteral("one\r\ntwo\r\nthree"));
        Indicator shown;
        const Button buttons[] = {&Indicator::left, &Indicator::right, &Indicator::center};
        editor.formatted(5, 0, [](RichTextBox &pane) { pane.setSelAlignment(Alignment::Right); });
        editor.select(0, 10);
        shown.display.ShowFormat(editor.source);
        for (const Button button : buttons)
            QCOMPARE(look(shown.*button), QStringLiteral("mixed"));
        editor.source.setSelAlignment(alignment);
        shown.display.ShowFormat(editor.source);
        for (const Button button : buttons)
            QCOMPARE(look(shown.*button),
                     button == pressed ? QStringLiteral("pressed") : QStringLiteral("released"));
    }

    void fonts()
    {
        EditorFixture editor(QStringLiteral("one two"));
        Indicator shown;
        editor.formatted(0, 3, [](RichTextBox &pane) {
            pane.setSelFontName(QStringLiteral("DejaVu Serif"));
            pane.setSelFontSize(14);
        });
        shown.display.ShowFormat(editor.source);
        QCOMPARE(shown.cboFontName.currentText(), QStringLiteral("DejaVu Serif"));
        QCOMPARE(shown.cboFontName.currentIndex(), 1);
        QCOMPARE(shown.cboFontSize.currentText(), QStringLiteral("14"));
        QVERIFY(shown.larger.isEnabled() && shown.smaller.isEnabled());

        editor.formatted(3, 4, [](RichTextBox &pane) {
            pane.setSelFontName(QStringLiteral("Not Installed"));
            pane.setSelFontSize(10.5);
        });
        shown.display.ShowFormat(editor.source);
        QCOMPARE(shown.cboFontName.currentText(), QStringLiteral("Not Installed"));
        QCOMPARE(shown.cboFontName.currentIndex(), -1);
        QCOMPARE(shown.cboFontSize.currentText(), QStringLiteral("11"));

        editor.select(0, 7);
        shown.display.ShowFormat(editor.source);
        QCOMPARE(shown.cboFontName.currentText(), QString());
        QCOMPARE(shown.cboFontSize.currentText(), QString());
        QVERIFY(!shown.larger.isEnabled() && !shown.smaller.isEnabled());
        editor.select(0, 1);
        shown.display.ShowFormat(editor.source);
        QVERIFY(shown.larger.isEnabled() && shown.smaller.isEnabled());
    }

    void thePanePassedIsShown()
    {
        EditorFixture editor(QStringLiteral("one"));
        Indicator shown;
        editor.formatted(0, 3, [](RichTextBox &pane) { pane.setSelBold(true); });
        editor.target.setText(QStringLiteral("two"));
        shown.display.ShowFormat(editor.source);
        shown.display.ShowSelText(editor.source);
        QCOMPARE(look(shown.bold), QStringLiteral("pressed"));
        QCOMPARE(shown.SelText.text(), QStringLiteral("one"));
        shown.display.ShowFormat(editor.target);
        shown.display.ShowSelText(editor.target);
        QCOMPARE(look(shown.bold), QStringLiteral("released"));
        QCOMPARE(shown.SelText.text(), QString());
    }

    void selectedText_data()
    {
        QTest::addColumn<QString>("selected");
        QTest::addColumn<QString>("panel");
        QTest::newRow("nothing") << QString() << QString();
        QTest::newRow("letter") << QStringLiteral("a") << QStringLiteral("a (#97)");
        QTest::newRow("space") << QStringLiteral(" ") << QStringLiteral("  (#32)");
        QTest::newRow("percent") << QStringLiteral("%") << QStringLiteral("% (#37)");
        QTest::newRow("code page") << QStringLiteral("…") << QStringLiteral("… (#133)");
        QTest::newRow("beyond it") << QStringLiteral("ŝ") << QStringLiteral("ŝ (#349)");
        QTest::newRow("soft hyphen") << QStringLiteral("\u00ad") << QStringLiteral("\u00ad (#173)");
        QTest::newRow("soft line break") << QStringLiteral("\v") << QStringLiteral("  (#11)");
        QTest::newRow("two") << QStringLiteral("ab") << QStringLiteral("ab");
        QTest::newRow("28") << QString(28, u'a') << QString(28, u'a');
        QTest::newRow("29") << QString(29, u'a') << QString(29, u'a');
        QTest::newRow("30") << QString(30, u'a') << QString(29, u'a') + QChar(u'…');
        QTest::newRow("many") << QString(3000, u'a') << QString(29, u'a') + QChar(u'…');
        QTest::newRow("letter of two units at the cut")
            << QString(28, u'a') + QStringLiteral("😀b") << QString(28, u'a') + QChar(u'…');
        QTest::newRow("markup") << QStringLiteral("<b>x</b>&y") << QStringLiteral("<b>x</b>&y");
        QTest::newRow("paragraphs") << QStringLiteral("a\r\nb\tc") << QStringLiteral("a  b c");
    }

    void selectedText()
    {
        QFETCH(QString, selected);
        EditorFixture editor(selected + QStringLiteral("and more"));
        Indicator shown;
        editor.select(0, int(selected.size()));
        shown.display.ShowSelText(editor.source);
        QTEST(shown.SelText.text(), "panel");
    }
};

QTEST_MAIN(tst_FormatIndicator)
#include "tst_formatindicator.moc"
