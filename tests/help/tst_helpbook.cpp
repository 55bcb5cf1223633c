#include "help/HelpBook.h"

#include "TarBytes.h"

#include <QRandomGenerator>
#include <QTest>

namespace {

QByteArray pageBytes(const QByteArray &title, const QByteArray &body)
{
    return "<html><head><title>" + title + "</title></head><body>" + body + "</body></html>";
}

TarFiles threePages()
{
    return {{"one.html", pageBytes("First page", "<p>Undo takes back a <b>st</b>ep.</p>")},
            {"two.html", pageBytes("Undo", "<p>It is a step &amp; more.</p>")},
            {"three.html", pageBytes("Keys", "<p>Undo, undo, UNDO: Ctrl+Z.</p>")},
            {"pictures/a.png", "not really a picture"}};
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
        QTest::newRow("no sums") << tarBytes(threePages());
        QTest::newRow("no pages") << helpBytes({{"pictures/a.png", "x"}});
        QTest::newRow("an empty book") << helpBytes({});
        TarFiles more = threePages();
        more.emplaceBack("SHA256SUMS", "00  one.html\n");
        QTest::newRow("wrong sums") << tarBytes(more);
    }

    void refusesWhatIsDamaged()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY(!HelpBook::read(bytes));
    }

    void noticesEachChangedByte()
    {
        const QByteArray whole = helpBytes(threePages());
        const auto intact = HelpBook::read(whole);
        for (qsizetype i = 0; i < whole.size(); ++i) {
            QByteArray damaged = whole;
            damaged[i] = char(damaged[i] ^ 0x04);
            const auto book = HelpBook::read(damaged); // what fills the blocks carries nothing
            QVERIFY2(!book || book->pages()[0].html == intact->pages()[0].html,
                     qPrintable(QString::number(i)));
            QVERIFY2(!book || book->picture(QStringLiteral("pictures/a.png")) ==
                                  threePages().last().second,
                     qPrintable(QString::number(i)));
        }
    }

    void survivesAnyBytes()
    {
        const quint32 seed = qEnvironmentVariableIsSet("QUILLON_SEED")
                                 ? quint32(qEnvironmentVariableIntValue("QUILLON_SEED"))
                                 : QRandomGenerator::global()->generate();
        qInfo("QUILLON_SEED=%u", seed);
        QRandomGenerator random(seed);
        const QByteArray whole = helpBytes(threePages());
        for (int round = 0; round < 2000; ++round) {
            QByteArray damaged = whole.first(random.bounded(int(whole.size())));
            for (int i = 0; i < 3 && !damaged.isEmpty(); ++i)
                damaged[random.bounded(int(damaged.size()))] = char(random.bounded(256));
            const auto book = HelpBook::read(damaged);
            QVERIFY(!book || !book->pages().empty());
        }
    }
};

QTEST_MAIN(tst_HelpBook)
#include "tst_helpbook.moc"
