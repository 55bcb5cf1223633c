#include "search/UnknownCharacters.h"

#include "platform/RichTextBox.h"
#include "support/MessageBoxes.h"

#include <QTest>

namespace {

enum class Direction { Next, Previous };

} // namespace

class tst_UnknownCharacters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void search_data();
    void search();
    void longTextIsSearchedBackAtOnce();
};

void tst_UnknownCharacters::search_data()
{
    QTest::addColumn<Direction>("direction");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("undefinedText");
    QTest::addColumn<int>("caret");
    QTest::addColumn<int>("start"); // of the selection afterwards
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("message");

    const QString none;
    const auto next = [&](const char *name) -> QTestData & {
        return QTest::addRow("next: %s", name) << Direction::Next;
    };
    const QString atEnd = u"The search reached the end of the document."_qs;
    next("finds") << u"ab?c?"_qs << u"?"_qs << 0 << 2 << 1 << none;
    next("goes on") << u"ab?c?"_qs << u"?"_qs << 2 << 4 << 1 << none;
    next("not at the caret itself") << u"?a"_qs << u"?"_qs << 0 << 0 << 0 << atEnd;
    next("end") << u"ab?c"_qs << u"?"_qs << 3 << 3 << 0 << atEnd;
    next("several characters") << u"a<?>b"_qs << u"<?>"_qs << 0 << 1 << 3 << none;
    next("case") << u"axX"_qs << u"X"_qs << 0 << 2 << 1 << none;
    next("behind a line end") << u"a\r\n?"_qs << u"?"_qs << 0 << 3 << 1 << none;
    next("nothing is written") << u"abc"_qs << QString() << 1 << 1 << 0 << none;

    const auto previous = [&](const char *name) -> QTestData & {
        return QTest::addRow("previous: %s", name) << Direction::Previous;
    };
    const QString atStart = u"The search reached the beginning of the document."_qs;
    previous("finds") << u"?ab?c"_qs << u"?"_qs << 5 << 3 << 1 << none;
    previous("goes on") << u"?ab?c"_qs << u"?"_qs << 3 << 0 << 1 << none;
    previous("reaches into what lies behind the caret")
        << u"a<?>b"_qs << u"<?>"_qs << 2 << 1 << 3 << none;
    previous("case") << u"Xxa"_qs << u"X"_qs << 3 << 0 << 1 << none;
    previous("none") << u"abc"_qs << u"?"_qs << 2 << 2 << 0 << atStart;
    previous("only behind") << u"ab?"_qs << u"?"_qs << 2 << 2 << 0 << atStart;
    previous("at the very start") << u"?ab"_qs << u"?"_qs << 0 << 0 << 0 << none;
    previous("nothing is written") << u"abc"_qs << QString() << 2 << 2 << 0 << none;
}

void tst_UnknownCharacters::search()
{
    QFETCH(Direction, direction);
    QFETCH(QString, text);
    QFETCH(QString, undefinedText);
    QFETCH(int, caret);
    QFETCH(QString, message);
    RichTextBox pane;
    pane.setText(text);
    pane.setSelStart(caret);
    const MessageBoxes boxes;
    if (direction == Direction::Next)
        findNextUnknownCharacter(nullptr, pane, undefinedText);
    else
        findPreviousUnknownCharacter(nullptr, pane, undefinedText);
    QTEST(pane.SelStart(), "start");
    QTEST(pane.SelLength(), "length");
    QCOMPARE(int(boxes.seen().size()), message.isEmpty() ? 0 : 1);
    for (const MessageBoxes::Seen &box : boxes.seen()) {
        QCOMPARE(box.text, message);
        QCOMPARE(box.icon, QMessageBox::Information);
        QCOMPARE(box.title, u"Quillon"_qs);
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
