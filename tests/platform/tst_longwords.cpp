#include "platform/LongWords.h"

#include "platform/RichTextBox.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>
#include <QTextDocument>

class tst_LongWords : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lengths_data();
    void lengths();
    void onlyBetweenThePositions();
    void longestWordIsShownAtOnce_data();
    void longestWordIsShownAtOnce();
    void wordsAreKeptWholeAgain();
    void openedFiles();
};

void tst_LongWords::lengths_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isLong");
    QTest::newRow("empty") << QString() << false;
    QTest::newRow("a long address") << u"see "_qs + QString(2'000, u'a') << false;
    QTest::newRow("longest that keeps other words whole") << QString(10'000, u'a') << false;
    QTest::newRow("longer") << QString(10'001, u'a') << true;
    QTest::newRow("longest behind a word") << u"ab "_qs + QString(10'000, u'a') << false;
    QTest::newRow("longer behind a word") << u"ab "_qs + QString(10'001, u'a') << true;
    QTest::newRow("longer between words")
        << u"ab cd "_qs.repeated(2'999) + QString(10'001, u'a') + u" ef"_qs << true;
    QTest::newRow("words") << u"ab cd "_qs.repeated(9'999) << false;
    QTest::newRow("no-break spaces") << u"a\xA0"_qs.repeated(5'001) << true;
    QTest::newRow("parted by hyphens alone") << u"ab-"_qs.repeated(9'999) << false;
    QTest::newRow("parted by one hyphen")
        << QString(9'000, u'a') + u'-' + QString(9'000, u'a') << false;
    QTest::newRow("signs that each end a line") << QString(40'000, u'\u65E5') << false;
    QTest::newRow("parted by soft line breaks") << u"abc\u2028"_qs.repeated(9'999) << false;
    QTest::newRow("many paragraphs") << (QString(5'000, u'a') + u'\n').repeated(99) << false;
    QTest::newRow("second paragraph") << u"a\n"_qs + QString(10'001, u'a') << true;
}

void tst_LongWords::lengths()
{
    QFETCH(QString, text);
    QTextDocument document;
    QTextCursor(&document).insertText(text);
    QTEST(haveLongWord(document, 0, document.characterCount()), "isLong");
}

void tst_LongWords::onlyBetweenThePositions()
{
    QTextDocument document;
    QTextCursor(&document).insertText(u"ab\ncd\n"_qs + QString(10'001, u'a'));
    QVERIFY(!haveLongWord(document, 0, 5));
    QVERIFY(haveLongWord(document, 0, 6));
}

void tst_LongWords::longestWordIsShownAtOnce_data()
{
    QTest::addColumn<QString>("first");
    QTest::newRow("inserted") << QString();
    QTest::newRow("grown") << QString(9'000, u'a');
}

void tst_LongWords::longestWordIsShownAtOnce()
{
    QFETCH(QString, first);
    RichTextBox box;
    box.resize(300, 300);
    box.show();
    box.setText(u"some words before\r\n"_qs + first);
    box.setSelStart(box.TextLength());
    QElapsedTimer clock;
    clock.start();
    box.setSelText(QString(200'000, u'a'));
    QCOMPARE(box.wordWrapMode(), QTextOption::WrapAnywhere);
    // Breaking between words takes above twenty seconds.
    QVERIFY2(clock.elapsed() < 5'000, qPrintable(u"%1 ms"_qs.arg(clock.elapsed())));
}

void tst_LongWords::wordsAreKeptWholeAgain()
{
    RichTextBox box;
    box.setText(u"ab "_qs + QString(10'000, u'a'));
    QCOMPARE(box.wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
    box.setSelStart(5'000);
    box.setSelText(u"x"_qs);
    QCOMPARE(box.wordWrapMode(), QTextOption::WrapAnywhere);
    box.setSelStart(1);
    box.setSelText(u"x"_qs);
    QCOMPARE(box.wordWrapMode(), QTextOption::WrapAnywhere);
    box.setSelStart(6'000);
    box.setSelLength(1);
    box.setSelText({});
    QCOMPARE(box.wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
}

void tst_LongWords::openedFiles()
{
    const QTemporaryDir folder;
    const auto file = [&](const QString &name, const QString &text) {
        const QString path = folder.filePath(name);
        RichTextBox writer;
        writer.setText(text);
        writer.SaveFile(path, FileType::Text);
        return path;
    };
    const QString longWord = file(u"long"_qs, QString(200'000, u'a'));
    const QString words = file(u"words"_qs, u"some words"_qs);
    RichTextBox box;
    box.show();
    QElapsedTimer clock;
    clock.start();
    box.LoadFile(longWord);
    QCOMPARE(box.wordWrapMode(), QTextOption::WrapAnywhere);
    QCOMPARE(box.TextLength(), 200'000);
    box.LoadFile(words);
    QCOMPARE(box.wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
    QVERIFY2(clock.elapsed() < 10'000, qPrintable(u"%1 ms"_qs.arg(clock.elapsed())));
}

QTEST_MAIN(tst_LongWords)
#include "tst_longwords.moc"
