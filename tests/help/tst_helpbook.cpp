#include "help/HelpBook.h"

#include "HelpBytes.h"

#include <QTest>

namespace {

QByteArray pageBytes(const QByteArray &title, const QByteArray &body)
{
    return "<html><head><title>" + title + "</title></head><body>" + body + "</body></html>";
}

HelpFiles threePages()
{
    return {{QStringLiteral("one.html"),
             pageBytes("First page", "<p>Undo takes back a <b>st</b>ep.</p>")},
            {QStringLiteral("two.html"), pageBytes("Undo", "<p>It is a step &amp; more.</p>")},
            {QStringLiteral("three.html"), pageBytes("Keys", "<p>Undo, undo, UNDO: Ctrl+Z.</p>")},
            {QStringLiteral("pictures/a.png"), "not really a picture"}};
}

QStringList found(const QString &typed)
{
    const auto book = HelpBook::read(helpBytes(threePages()));
    QStringList names;
    for (const HelpHit &hit : book->find(searchedWords(typed)))
        names += book->pages()[std::size_t(hit.page)].name;
    return names;
}

} // namespace

class tst_HelpBook : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pagesAndPictures()
    {
        const auto book = HelpBook::read(helpBytes(threePages()));
        QVERIFY(book);
        QCOMPARE(book->pages().size(), std::size_t(3));
        QCOMPARE(book->pages()[0].title, QStringLiteral("First page"));
        QCOMPARE(book->page(QStringLiteral("two.html"))->text,
                 QStringLiteral("It is a step & more."));
        QVERIFY(!book->page(QStringLiteral("four.html")));
        QCOMPARE(book->picture(QStringLiteral("pictures/a.png")), threePages().last().second);
        QVERIFY(book->picture(QStringLiteral("pictures/b.png")).isEmpty());
    }

    void finds_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QStringList>("names");
        const QStringList titleFirst{QStringLiteral("two.html"), QStringLiteral("three.html"),
                                     QStringLiteral("one.html")};
        QTest::newRow("nothing") << QString() << QStringList();
        QTest::newRow("blanks") << QStringLiteral(" \t ") << QStringList();
        QTest::newRow("in capitals") << QStringLiteral("uNdO") << titleFirst;
        QTest::newRow("every word")
            << QStringLiteral(" undo  step ")
            << QStringList({QStringLiteral("two.html"), QStringLiteral("one.html")});
        QTest::newRow("a part of a word")
            << QStringLiteral("ctrl") << QStringList(QStringLiteral("three.html"));
        QTest::newRow("one word missing") << QStringLiteral("undo elephant") << QStringList();
        QTest::newRow("markup is no text") << QStringLiteral("html") << QStringList();
    }

    void finds()
    {
        QFETCH(QString, typed);
        QTEST(found(typed), "names");
    }

    void refusesWhatIsDamaged_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("text") << QByteArray("This is not the help.");
        const QByteArray whole = helpBytes(threePages());
        QTest::newRow("no sum") << whole.sliced(whole.indexOf('\n') + 1);
        QTest::newRow("the sum alone") << withSum({});
        QTest::newRow("cut off") << whole.chopped(1);
        QTest::newRow("longer") << whole + '\n';
        QTest::newRow("no pages") << helpBytes({{QStringLiteral("pictures/a.png"), "x"}});
        QTest::newRow("an empty book") << helpBytes({});
        QTest::newRow("not JSON") << withSum("pages");
        QTest::newRow("another JSON") << withSum("{\"pages\": {\"html\": 1}}");
    }

    void refusesWhatIsDamaged()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY(!HelpBook::read(bytes));
    }

    void noticesEachChangedByte()
    {
        const QByteArray whole = helpBytes(threePages());
        for (qsizetype i = 0; i < whole.size(); ++i) {
            QByteArray damaged = whole;
            damaged[i] = char(damaged[i] ^ 0x04);
            QVERIFY2(!HelpBook::read(damaged), qPrintable(QString::number(i)));
        }
    }
};

QTEST_MAIN(tst_HelpBook)
#include "tst_helpbook.moc"
