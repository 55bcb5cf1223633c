#include "editor/PaneContextMenu.h"
#include "support/EditorFixture.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>

namespace {

const QString Text = QStringLiteral("one two\r\nthree");

QClipboard &clipboard()
{
    return *QGuiApplication::clipboard();
}

} // namespace

class tst_EditCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { clipboard().setText(QStringLiteral("before")); }

    void cut()
    {
        EditorFixture editor(Text);
        editor.select(4, 5);
        editor.edit.Cut(editor.source);
        QCOMPARE(editor.source.Text(), QStringLiteral("one three"));
        QCOMPARE(editor.source.SelStart(), 4);
        QCOMPARE(clipboard().text(), QStringLiteral("two\r\n"));
        QCOMPARE(editor.journal.recorded, QList{PaneCode::Source});
        editor.journal.restore(PaneCode::Source, editor.journal.states.first());
        QCOMPARE(editor.source.Text(), Text);
    }

    void copy()
    {
        EditorFixture editor(Text);
        editor.formatted(4, 3, [](RichTextBox &pane) { pane.setSelBold(true); });
        EditCommands::Copy(editor.source);
        QCOMPARE(clipboard().text(), QStringLiteral("two"));
        QCOMPARE(clipboard().mimeData()->formats(), QStringList(QStringLiteral("text/plain")));
        QCOMPARE(editor.source.Text(), Text);
        QCOMPARE(editor.source.SelLength(), 3);
        QCOMPARE(editor.records(), 0);
    }

    void copyKeepsEveryCharacter()
    {
        const QString special = QStringLiteral("\u00a0\u00ad\u0081\v\f\tÿ…\u007f");
        EditorFixture editor(special);
        EditCommands::SelectAll(editor.source);
        EditCommands::Copy(editor.source);
        QCOMPARE(clipboard().text(), special);
    }

    void paste()
    {
        EditorFixture editor(Text);
        editor.select(4, 3);
        clipboard().setText(QStringLiteral("a\nb\rc\r\nd\x01\x1f\x1b"));
        editor.edit.Paste(editor.source);
        QCOMPARE(editor.source.Text(), QStringLiteral("one a\r\nb\r\nc\r\nd\r\nthree"));
        QCOMPARE(editor.source.SelStart(), 14);
        QCOMPARE(editor.source.SelLength(), 0);
        QCOMPARE(editor.journal.recorded, QList{PaneCode::Source});
    }

    void pasteTakesTheFormattingAtTheCaret()
    {
        EditorFixture editor(QStringLiteral("roman"));
        editor.formatted(0, 5, [](RichTextBox &pane) {
            pane.setSelFontName(QStringLiteral("DejaVu Serif"));
            pane.setSelFontSize(30);
            pane.setSelItalic(true);
        });
        editor.target.setText(QStringLiteral("1Rx#6"));
        editor.target.setSelLength(5);
        editor.target.setSelFontName(QStringLiteral("Tengwar Quenya"));
        editor.target.setSelFontSize(20);
        EditCommands::Copy(editor.source);

        editor.activate(PaneCode::Target);
        editor.target.setSelStart(2);
        editor.edit.Paste(editor.target);
        QCOMPARE(editor.target.Text(), QStringLiteral("1Rromanx#6"));
        EditCommands::SelectAll(editor.target);
        QCOMPARE(editor.target.SelFormat().fontName, QStringLiteral("Tengwar Quenya"));
        QCOMPARE(editor.target.SelFormat().fontSize, 20);
        QCOMPARE(editor.target.SelFormat().italic, false);
        QCOMPARE(editor.journal.recorded, QList{PaneCode::Target});
    }

    void pasteTakesTheFormattingSetForTheNextCharacter()
    {
        EditorFixture editor(Text);
        editor.select(3, 0);
        editor.format.toggleBold();
        clipboard().setText(QStringLiteral("xyz"));
        editor.edit.Paste(editor.source);
        editor.select(3, 3);
        QCOMPARE(editor.source.SelText(), QStringLiteral("xyz"));
        QCOMPARE(editor.source.SelFormat().bold, true);
    }

    void pasteOfAnythingButText()
    {
        EditorFixture editor(Text);
        editor.select(0, 4);
        clipboard().setImage(QImage(4, 4, QImage::Format_RGB32));
        editor.edit.Paste(editor.source);
        QCOMPARE(editor.source.Text(), QStringLiteral("two\r\nthree"));
        QCOMPARE(editor.records(), 1);
    }

    void pasteOfRichText()
    {
        EditorFixture editor(Text);
        auto *rich = new QMimeData;
        rich->setHtml(QStringLiteral("<b>rich</b>"));
        rich->setText(QStringLiteral("<i>plain</i>"));
        clipboard().setMimeData(rich);
        editor.edit.Paste(editor.source);
        QCOMPARE(editor.source.Text(), QStringLiteral("<i>plain</i>") + Text);
    }

    void clear()
    {
        EditorFixture editor(Text);
        editor.select(7, 2);
        editor.edit.Clear(editor.source);
        QCOMPARE(editor.source.Text(), QStringLiteral("one twothree"));
        QCOMPARE(clipboard().text(), QStringLiteral("before"));
        QCOMPARE(editor.records(), 1);
    }

    void nothingSelected()
    {
        EditorFixture editor(Text);
        editor.select(3, 0);
        editor.edit.Clear(editor.source);
        QCOMPARE(editor.records(), 1);
        EditCommands::Copy(editor.source);
        QCOMPARE(editor.records(), 1);
        QCOMPARE(clipboard().text(), QString());
        clipboard().setText(QStringLiteral("before"));
        editor.edit.Cut(editor.source);
        QCOMPARE(editor.records(), 2);
        QCOMPARE(clipboard().text(), QString());
        editor.edit.Paste(editor.source);
        QCOMPARE(editor.records(), 3);
        QCOMPARE(editor.source.Text(), Text);
    }

    void selectAll()
    {
        EditorFixture editor(Text);
        editor.select(3, 2);
        EditCommands::SelectAll(editor.source);
        QCOMPARE(editor.source.SelStart(), 0);
        QCOMPARE(editor.source.SelLength(), Text.size());
        QCOMPARE(editor.records(), 0);
        QTest::keyClicks(&editor.source, QStringLiteral("x"));
        QCOMPARE(editor.source.Text(), QStringLiteral("x"));
    }

    void contextMenu()
    {
        EditorFixture editor(Text);
        editor.target.setText(Text);
        QAction copy(QStringLiteral("C&opy"));
        int triggered = 0;
        connect(&copy, &QAction::triggered, &copy, [&triggered] { ++triggered; });
        setContextMenu(editor.target, {&copy});
        QCOMPARE(editor.target.contextMenuPolicy(), Qt::CustomContextMenu);

        const QPoint place = editor.target.viewport()->rect().center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, place,
                                editor.target.viewport()->mapToGlobal(place));
        QApplication::sendEvent(editor.target.viewport(), &event);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QCOMPARE(menu->objectName(), QStringLiteral("contextMenu"));
        QCOMPARE(menu->actions(), QList{&copy});
        QCOMPARE(menu->pos(), editor.target.viewport()->mapToGlobal(place));
        QCOMPARE(editor.window.focusWidget(), &editor.target);
        QTest::keyClick(menu, Qt::Key_O);
        QCOMPARE(triggered, 1);
        QTRY_VERIFY(!QApplication::activePopupWidget());
    }
};

QTEST_MAIN(tst_EditCommands)
#include "tst_editcommands.moc"
