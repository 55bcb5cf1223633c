#include "search/UnknownCharacters.h"

#include "platform/RichTextBox.h"
#include "support/MessageBoxes.h"

#include <QTest>

class tst_UnknownCharacters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void next_data();
    void next();
    void previous_data();
    void previous();
    void longTextIsSearchedBackAtOnce();
};

void tst_UnknownCharacters::next_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("undefinedText");
    QTest::addColumn<int>("caret");
    QTest::addColumn<int>("start"); // of the selection afterwards
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("messages");

    QTest::newRow("finds") << u"ab?c?"_qs << u"?"_qs << 0 << 2 << 1 << 0;
    QTest::newRow("goes on") << u"ab?c?"_qs << u"?"_qs << 2 << 4 << 1 << 0;
    QTest::newRow("not at the caret itself") << u"?a"_qs << u"?"_qs << 0 << 0 << 0 << 1;
    QTest::newRow("end") << u"ab?c"_qs << u"?"_qs << 3 << 3 << 0 << 1;
    QTest::newRow("several characters") << u"a<?>b"_qs << u"<?>"_qs << 0 << 1 << 3 << 0;
    QTest::newRow("case") << u"axX"_qs << u"X"_qs << 0 << 2 << 1 << 0;
    QTest::newRow("behind a line end") << u"a\r\n?"_qs << u"?"_qs << 0 << 3 << 1 << 0;
    QTest::newRow("nothing is written") << u"abc"_qs << QString() << 1 << 1 << 0 << 0;
}

void tst_UnknownCharacters::next()
{
    QFETCH(QString, text);
    QFETCH(QString, undefinedText);
    QFETCH(int, caret);
    QFETCH(int, messages);
    RichTextBox pane;
    pane.setText(text);
    pane.setSelStart(caret);
    const MessageBoxes boxes;
    findNextUnknownCharacter(nullptr, pane, undefinedText);
    QTEST(pane.SelStart(), "start");
    QTEST(pane.SelLength(), "length");
    QCOMPARE(int(boxes.seen().size()), messages);
    for (const MessageBoxes::Seen &box : boxes.seen()) {
        QCOMPARE(box.text, u"The search reached the end of the document."_qs);
        QCOMPARE(box.icon, QMessageBox::Information);
        QCOMPARE(box.title, u"Quillon"_qs);
    }
}

void tst_UnknownCharacters::previous_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("undefinedText");
    QTest::addColumn<int>("caret");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("messages");

    QTest::newRow("finds") << u"?ab?c"_qs << u"?"_qs << 5 << 3 << 1 << 0;
    QTest::newRow("goes on") << u"?ab?c"_qs << u"?"_qs << 3 << 0 << 1 << 0;
    QTest::newRow("reaches into what lies behind the caret")
        << u"a<?>b"_qs << u"<?>"_qs << 2 << 1 << 3 << 0;
    QTest::newRow("case") << u"Xxa"_qs << u"X"_qs << 3 << 0 << 1 << 0;
    QTest::newRow("none") << u"abc"_qs << u"?"_qs << 2 << 2 << 0 << 1;
    QTest::newRow("only behind") << u"ab?"_qs << u"?"_qs << 2 << 2 << 0 << 1;
    QTest::newRow("at the very start") << u"?ab"_qs << u"?"_qs << 0 << 0 << 0 << 0;
    QTest::newRow("nothing is written") << u"abc"_qs << QString() << 2 << 2 << 0 << 0;
}

void tst_UnknownCharacters::previous()
{
    QFETCH(QString, text);
    QFETCH(QString, undefinedText);
    QFETCH(int, caret);
    QFETCH(int, messages);
    RichTextBox pane;
    pane.setText(text);
    pane.setSelStart(caret);
    const MessageBoxes boxes;
    findPreviousUnknownCharacter(nullptr, pane, undefinedText);
    QTEST(pane.SelStart(), "start");
    QTEST(pane.SelLength(), "length");
    QCOMPARE(int(boxes.seen().size()), messages);
    for (const MessageBoxes::Seen &box : boxes.seen()) {
        QCOMPARE(box.text, u"The search reached the beginning of the document."_qs);
        QCOMPARE(box.icon, QMessageBox::Information);
    }
}

void tst_UnknownCharacters::longTextIsSearchedBackAtOnce()
{
    RichTextBox pane;
    pane.setText(u'?' + QString(32'000, u'a'));
    pane.setSelStart(32'001);
    findPreviousUnknownCharacter(nullptr, pane, u"?"_qs);
    QCOMPARE(pane.SelStart(), 0);
    QCOMPARE(pane.SelLength(), 1);
}

QTEST_MAIN(tst_UnknownCharacters)
#include "tst_unknowncharacters.moc"
