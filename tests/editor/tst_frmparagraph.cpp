#include "editor/ParagraphCommand.h"
#include "support/EditorFixture.h"
#include "support/MessageBoxes.h"
#include "support/ModalDialog.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

QLineEdit &box(const QDialog &dialog, const char *name)
{
    auto *found = dialog.findChild<QLineEdit *>(QLatin1StringView(name));
    if (!found)
        qFatal("There is no %s", name);
    return *found;
}

QComboBox &alignmentList(const QDialog &dialog)
{
    return *dialog.findChild<QComboBox *>(QStringLiteral("cmbAlignment"));
}

void press(const QDialog &dialog, const char *button)
{
    QTest::mouseClick(dialog.findChild<QPushButton *>(QLatin1StringView(button)), Qt::LeftButton);
}

/// Types over what the box holds.
void enter(QLineEdit &box, const QString &text)
{
    box.setFocus();
    box.selectAll();
    QTest::keyClicks(&box, text);
}

void edit(EditorFixture &editor, const std::function<void(QDialog &)> &use)
{
    const ModalDialog user("frmParagraph", use);
    editParagraphs(editor.state, editor.panes, editor.journal, &editor.window);
    QCOMPARE(user.uses(), 1);
}

void setIndents(RichTextBox &pane, int first, int left, int right, int bullet)
{
    pane.setSelIndent(first);
    pane.setSelHangingIndent(left);
    pane.setSelRightIndent(right);
    pane.setBulletIndent(bullet);
}

} // namespace

class tst_frmParagraph : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shows_data()
    {
        QTest::addColumn<QString>("unit");
        QTest::addColumn<double>("factor");
        QTest::addColumn<QString>("firstLine"); // of 567 twips
        QTest::addColumn<QString>("left");      // of -283
        QTest::newRow("mm") << QStringLiteral("mm") << 56.7 << QStringLiteral("10.0")
                            << QStringLiteral("-5.0");
        QTest::newRow("cm") << QStringLiteral("cm") << 567.0 << QStringLiteral("1.0")
                            << QStringLiteral("-0.5");
        QTest::newRow("in") << QStringLiteral("in") << 1440.0 << QStringLiteral("0.4")
                            << QStringLiteral("-0.2");
        QTest::newRow("pt") << QStringLiteral("pt") << 20.0 << QStringLiteral("28.4")
                            << QStringLiteral("-14.2");
        QTest::newRow("px") << QStringLiteral("px") << 15.0 << QStringLiteral("37.8")
                            << QStringLiteral("-18.9");
    }

    void shows()
    {
        QFETCH(QString, unit);
        QFETCH(double, factor);
        EditorFixture editor(QStringLiteral("text"));
        editor.state.Settings.StandardUnit = unit;
        editor.state.Settings.UnitFactor = factor;
        setIndents(editor.source, 567, -283, 0, 1440);
        editor.source.setSelAlignment(Alignment::Center);
        edit(editor, [&](QDialog &dialog) {
            QCOMPARE(dialog.windowTitle(), QStringLiteral("Paragraph"));
            QTEST(box(dialog, "txtFirstLineIndent").text(), "firstLine");
            QTEST(box(dialog, "txtLeftIndent").text(), "left");
            QCOMPARE(box(dialog, "txtRightIndent").text(), QStringLiteral("0.0"));
            QCOMPARE(alignmentList(dialog).currentText(), QStringLiteral("Center"));
            for (int i = 0; i < 4; ++i)
                QCOMPARE(dialog.findChild<QLabel *>(QStringLiteral("lblUnit_%1").arg(i))->text(),
                         unit);
        });
    }

    void halvesGoUp()
    {
        EditorFixture editor(QStringLiteral("text"));
        editor.state.Settings.StandardUnit = QStringLiteral("in");
        editor.state.Settings.UnitFactor = 1440;
        editor.source.setSelIndent(216); // 0.15, which binary numbers hold a little below
        edit(editor, [](QDialog &dialog) {
            QCOMPARE(box(dialog, "txtFirstLineIndent").text(), QStringLiteral("0.2"));
        });
    }

    void setsEverything()
    {
        EditorFixture editor(QStringLiteral("text"));
        edit(editor, [](QDialog &dialog) {
            enter(box(dialog, "txtLeftIndent"), QStringLiteral("-5"));
            enter(box(dialog, "txtRightIndent"), QStringLiteral("2.5"));
            enter(box(dialog, "txtFirstLineIndent"), QStringLiteral("10,0"));
            enter(box(dialog, "txtBulletedIndent"), QStringLiteral("7"));
            QTest::keyClick(&alignmentList(dialog), Qt::Key_End);
            QTest::keyClick(&dialog, Qt::Key_Return);
        });
        const SelectionFormat &format = editor.source.SelFormat();
        QCOMPARE(format.indent, 567);
        QCOMPARE(format.hangingIndent, -284); // 283.5
        QCOMPARE(format.rightIndent, 142);    // 141.75
        QCOMPARE(format.bulletIndent, 397);   // 396.9
        QCOMPARE(format.alignment, Alignment::Center);
        QCOMPARE(editor.journal.recorded, QList{PaneCode::Source});
    }

    void justifiedText_data()
    {
        QTest::addColumn<bool>("chooses");
        QTest::addColumn<Qt::Alignment>("alignment");
        QTest::newRow("left alone") << false << Qt::Alignment(Qt::AlignJustify);
        QTest::newRow("left is chosen") << true << Qt::Alignment(Qt::AlignLeft);
    }

    void justifiedText()
    {
        QFETCH(bool, chooses);
        EditorFixture editor(QStringLiteral("text"));
        QTextBlockFormat justified;
        justified.setAlignment(Qt::AlignJustify);
        editor.source.textCursor().mergeBlockFormat(justified);
        edit(editor, [chooses](QDialog &dialog) {
            QComboBox &list = alignmentList(dialog);
            QCOMPARE(list.currentText(), QStringLiteral("Left"));
            if (chooses) {
                list.showPopup();
                QTest::keyClick(list.view(), Qt::Key_Return);
            }
            press(dialog, "cmdOK");
        });
        QTEST(editor.source.textCursor().blockFormat().alignment(), "alignment");
    }

    void okRecordsAStateEvenWithoutAChange()
    {
        EditorFixture editor(QStringLiteral("text"));
        const QByteArray before = editor.source.TextRTF();
        edit(editor, [](QDialog &dialog) { press(dialog, "cmdOK"); });
        QCOMPARE(editor.source.TextRTF(), before);
        QCOMPARE(editor.records(), 1);
    }

    void cancelled_data()
    {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("Escape") << true;
        QTest::newRow("Cancel") << false;
    }

    void cancelled()
    {
        QFETCH(bool, byKey);
        EditorFixture editor(QStringLiteral("text"));
        const QByteArray before = editor.source.TextRTF();
        edit(editor, [byKey](QDialog &dialog) {
            enter(box(dialog, "txtLeftIndent"), QStringLiteral("5"));
            if (byKey)
                QTest::keyClick(&dialog, Qt::Key_Escape);
            else
                press(dialog, "cmdCancel");
        });
        QCOMPARE(editor.source.TextRTF(), before);
        QCOMPARE(editor.records(), 0);
    }

    void mixedValuesStay()
    {
        EditorFixture editor(QStringLiteral("one\r\ntwo"));
        editor.select(0, 0);
        setIndents(editor.source, 100, 200, 300, 400);
        editor.source.setSelAlignment(Alignment::Right);
        editor.select(0, 8);
        edit(editor, [](QDialog &dialog) {
            for (const char *name :
                 {"txtLeftIndent", "txtRightIndent", "txtFirstLineIndent", "txtBulletedIndent"})
                QCOMPARE(box(dialog, name).text(), QString());
            QCOMPARE(alignmentList(dialog).currentIndex(), -1);
            enter(box(dialog, "txtRightIndent"), QStringLiteral("10"));
            press(dialog, "cmdOK");
        });
        QCOMPARE(editor.source.SelFormat().rightIndent, 567);
        editor.select(0, 0);
        QCOMPARE(editor.source.SelFormat().indent, 100);
        QCOMPARE(editor.source.SelFormat().hangingIndent, 200);
        QCOMPARE(editor.source.SelFormat().bulletIndent, 400);
        QCOMPARE(editor.source.SelFormat().alignment, Alignment::Right);
        editor.select(5, 0);
        QCOMPARE(editor.source.SelFormat().indent, 0);
        QCOMPARE(editor.source.SelFormat().alignment, Alignment::Left);
        QCOMPARE(editor.records(), 1);
    }

    void refused_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << QString();
        QTest::newRow("two decimal signs") << QStringLiteral("1.2,3");
        QTest::newRow("only a sign") << QStringLiteral("-");
        QTest::newRow("word") << QStringLiteral("wide");
        QTest::newRow("too wide") << QStringLiteral("559");
    }

    void refused()
    {
        QFETCH(QString, text);
        EditorFixture editor(QStringLiteral("text"));
        const QByteArray before = editor.source.TextRTF();
        const MessageBoxes boxes;
        edit(editor, [&text](QDialog &dialog) {
            enter(box(dialog, "txtFirstLineIndent"), QStringLiteral("3"));
            QLineEdit &wrong = box(dialog, "txtBulletedIndent");
            wrong.setText(text); // as pasted
            press(dialog, "cmdOK");
            QVERIFY(dialog.isVisible());
            QCOMPARE(dialog.focusWidget(), &wrong);
            QCOMPARE(wrong.selectedText(), text);
        });
        QCOMPARE(boxes.seen().size(), size_t(1));
        QCOMPARE(boxes.seen().front().title, QStringLiteral("Paragraph"));
        QCOMPARE(editor.source.TextRTF(), before);
        QCOMPARE(editor.records(), 0);
    }

    void keys_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("kept");
        QTest::newRow("left") << QStringLiteral("txtLeftIndent") << QStringLiteral("+1-2,3.4");
        QTest::newRow("right") << QStringLiteral("txtRightIndent") << QStringLiteral("12,3.4");
        QTest::newRow("first line")
            << QStringLiteral("txtFirstLineIndent") << QStringLiteral("+1-2,3.4");
        QTest::newRow("bulleted lists")
            << QStringLiteral("txtBulletedIndent") << QStringLiteral("12,3.4");
    }

    void keys()
    {
        QFETCH(QString, name);
        QFETCH(QString, kept);
        EditorFixture editor(QStringLiteral("text"));
        edit(editor, [&](QDialog &dialog) {
            QLineEdit &typed = box(dialog, name.toLatin1().constData());
            enter(typed, QStringLiteral("+1a-2,m/3.4 "));
            QCOMPARE(typed.text(), kept);
            QTest::keyClick(&typed, Qt::Key_Home);
            QTest::keyClick(&typed, Qt::Key_Delete);
            QTest::keyClick(&typed, Qt::Key_End);
            QTest::keyClick(&typed, Qt::Key_Backspace);
            QCOMPARE(typed.text(), kept.sliced(1).chopped(1));
        });
    }

    void tabbingSelectsEachBox()
    {
        EditorFixture editor(QStringLiteral("text"));
        edit(editor, [](QDialog &dialog) {
            QStringList visited;
            for (int i = 0; i < 7; ++i) {
                QWidget *focused = dialog.focusWidget();
                visited += focused->objectName();
                if (auto *line = qobject_cast<QLineEdit *>(focused))
                    QTRY_COMPARE(line->selectedText(), QStringLiteral("0.0"));
                QTest::keyClick(focused, Qt::Key_Tab);
            }
            QCOMPARE(visited.join(u' '),
                     QStringLiteral("txtLeftIndent txtRightIndent txtFirstLineIndent "
                                    "txtBulletedIndent cmbAlignment cmdOK cmdCancel"));
        });
    }

    void labelsLeadToTheirFields()
    {
        EditorFixture editor(QStringLiteral("text"));
        edit(editor, [](QDialog &dialog) {
            QSet<QChar> mnemonics;
            for (const QLabel *label : dialog.findChildren<QLabel *>()) {
                const qsizetype mark = label->text().indexOf(u'&');
                if (mark < 0)
                    continue;
                QVERIFY(label->buddy());
                QVERIFY(!label->buddy()->accessibleName().isEmpty());
                QVERIFY(!mnemonics.contains(label->text()[mark + 1].toLower()));
                mnemonics += label->text()[mark + 1].toLower();
            }
            QCOMPARE(mnemonics.size(), 5);
        });
    }

    void nothingHappensWithoutAnActivePane()
    {
        EditorFixture editor(QStringLiteral("text"));
        editor.activate(PaneCode::None);
        const ModalDialog user("frmParagraph", [](QDialog &) {});
        editParagraphs(editor.state, editor.panes, editor.journal, &editor.window);
        QCOMPARE(user.uses(), 0);
    }
};

QTEST_MAIN(tst_frmParagraph)
#include "tst_frmparagraph.moc"
