#include "search/ReplaceAll.h"

#include "search/FindWindow.h"
#include "support/MessageBoxes.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTextBlock>

/// Replace all, through the find dialog.
class tst_ReplaceAll : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsFormats();
    void replacesTengwar();
    void tenThousandReplacements();
    void grownTextIsShownAtOnce();
    void endlessReplacementStaysAlive_data();
    void endlessReplacementStaysAlive();
    void growingBeyondTheLimit();
    void changedMeanwhile();
};

void tst_ReplaceAll::keepsFormats()
{
    FindWindow window;
    window.source.setText(u"ab AB ab"_qs);
    QTextCursor cursor(window.source.document());
    cursor.setPosition(3);
    cursor.setPosition(5, QTextCursor::KeepAnchor);
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    cursor.mergeCharFormat(bold);
    window.openReplace(u"ab"_qs, u"xyz"_qs);
    const MessageBoxes boxes;
    window.click("cmdReplaceAll");
    QCOMPARE(window.source.Text(), u"xyz xyz xyz"_qs);
    for (int position = 1; position <= 11; ++position) {
        cursor.setPosition(position);
        QCOMPARE(cursor.charFormat().fontWeight() == QFont::Bold, position > 4 && position <= 7);
    }
    QCOMPARE(window.source.SelStart(), 11);
    QVERIFY(boxes.seen().empty());
    QCOMPARE(window.get<QLabel>("lblProgress").text(), QString());
}

void tst_ReplaceAll::replacesTengwar()
{
    FindWindow window;
    window.target.setText(u"1 1q Q 1Q"_qs);
    window.state.ActivePane = PaneCode::Target;
    window.openReplace(u"ab"_qs, u"a"_qs);
    window.click("optTengwarReplace");
    window.click("cmdReplaceAll");
    QCOMPARE(window.target.Text(), u"1 1 Q 1Q"_qs);
}

void tst_ReplaceAll::tenThousandReplacements()
{
    constexpr int Count = 10'666;
    constexpr int RunLength = 7; // so that runs end at, before and behind matches
    const auto sizeAt = [](int position) { return 8 + position / RunLength % 13; };
    FindWindow window;
    const QString text = u"a12"_qs.repeated(Count);
    QTextCursor cursor(window.source.document());
    cursor.beginEditBlock();
    for (int position = 0; position < text.size(); position += RunLength) {
        QTextCharFormat format;
        format.setFontPointSize(sizeAt(position));
        cursor.insertText(text.mid(position, RunLength), format);
    }
    cursor.endEditBlock();
    window.openReplace(u"a"_qs, u"bc"_qs);
    QElapsedTimer clock;
    clock.start();
    window.click("cmdReplaceAll");
    QTRY_COMPARE(window.source.Text(), u"bc12"_qs.repeated(Count));
    QVERIFY2(clock.elapsed() < 5'000, qPrintable(u"%1 ms"_qs.arg(clock.elapsed())));
    int position = 0; // in the former text, four characters being three there
    const QTextBlock block = window.source.document()->firstBlock();
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        for (int i = 0; i < it.fragment().length(); ++i, ++position) {
            const int former = position / 4 * 3 + std::max(position % 4 - 1, 0);
            QCOMPARE(it.fragment().charFormat().fontPointSize(), double(sizeAt(former)));
        }
    }
    QCOMPARE(position, 4 * Count);
}

void tst_ReplaceAll::grownTextIsShownAtOnce()
{
    constexpr int Letters = 200'000; // one word
    FindWindow window;
    window.source.setText(QString(Letters, u'a'));
    window.openReplace(u"a"_qs, u"aa"_qs);
    window.click("cmdReplaceAll");
    const auto &progress = window.get<QLabel>("lblProgress");
    QTRY_VERIFY(!progress.text().isEmpty());
    const QString first = progress.text();
    QTRY_VERIFY(progress.text() != first);
    QElapsedTimer clock;
    clock.start();
    QTest::keyClick(window.dialog().focusWidget(), Qt::Key_Escape);
    QVERIFY2(clock.elapsed() < 10'000, qPrintable(u"%1 ms"_qs.arg(clock.elapsed())));
    QVERIFY(window.source.TextLength() > Letters);
    QCOMPARE(window.source.Text(), QString(window.source.TextLength(), u'a'));
}

void tst_ReplaceAll::endlessReplacementStaysAlive_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("Esc in the dialog") << 0;
    QTest::newRow("Esc in the window") << 1;
    QTest::newRow("closing the dialog") << 2;
    QTest::newRow("closing the window") << 3;
}

void tst_ReplaceAll::endlessReplacementStaysAlive()
{
    QFETCH(int, way);
    FindWindow window;
    window.source.setText(u"a-b"_qs);
    window.openReplace(u"a"_qs, u"A"_qs);
    int served = 0;
    QTimer heartbeat;
    heartbeat.callOnTimeout([&] { ++served; });
    heartbeat.start(0);
    window.click("cmdReplaceAll");
    QTRY_VERIFY(served > 20);
    heartbeat.stop();
    QVERIFY(window.get<QLabel>("lblProgress").text().contains(u"replaced so far"_qs));
    QVERIFY(!window.get<QPushButton>("cmdFind").isEnabled());
    QVERIFY(!window.get<QLineEdit>("txtRomanSearch").isEnabled());
    switch (way) {
    case 0:
        QTest::keyClick(window.dialog().focusWidget(), Qt::Key_Escape);
        QVERIFY(window.dialog().isVisible());
        break;
    case 1:
        window.state.AbortRequested = true;
        break;
    case 2:
        window.click("cmdClose");
        QTRY_VERIFY(!window.isSearching());
        break;
    default:
        window.close();
    }
    QTRY_COMPARE(window.source.Text(), u"A-b"_qs);
    if (!window.isSearching())
        return;
    QVERIFY(window.get<QPushButton>("cmdFind").isEnabled());
    QCOMPARE(window.get<QLabel>("lblProgress").text(), QString());
}

void tst_ReplaceAll::growingBeyondTheLimit()
{
    FindWindow window;
    window.source.setText(u"a"_qs);
    window.commands.showReplace();
    window.type("txtRomanSearch", u"a"_qs);
    window.get<QLineEdit>("txtRomanReplace").setText(QString(5000, u'a'));
    MessageBoxes boxes;
    window.click("cmdReplaceAll");
    QTRY_COMPARE(int(boxes.seen().size()), 1);
    QCOMPARE(boxes.seen()[0].text, u"Run-time error '6':\n\nOverflow"_qs);
    QTRY_VERIFY(window.get<QPushButton>("cmdReplaceAll").isEnabled());
    QCOMPARE(window.source.Text(), u"a"_qs);
}

void tst_ReplaceAll::changedMeanwhile()
{
    FindWindow window;
    window.source.setText(u"a-b"_qs);
    window.openReplace(u"a"_qs, u"a"_qs);
    window.click("cmdReplaceAll");
    // The user goes on typing, and takes away what would be replaced for ever.
    QTest::keyClick(&window.source, Qt::Key_Delete);
    QTest::keyClick(&window.source, Qt::Key_X);
    QTRY_VERIFY(window.get<QPushButton>("cmdFind").isEnabled());
    QCOMPARE(window.source.Text(), u"x-b"_qs);
}

QTEST_MAIN(tst_ReplaceAll)
#include "tst_replaceall.moc"
