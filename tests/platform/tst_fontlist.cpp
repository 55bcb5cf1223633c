#include "platform/FontList.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QRandomGenerator>
#include <QTest>
#include <algorithm>

class tst_FontList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void order_data();
    void order();
    void orderOfInstallationDoesNotMatter();
    void installedFontsBeginWithTheInterfaces();
    void ownFontsAreRegistered();
};

void tst_FontList::order_data()
{
    QTest::addColumn<QStringList>("installed");
    QTest::addColumn<QString>("interfaceFont");
    QTest::addColumn<QStringList>("own");
    QTest::addColumn<QStringList>("listed");
    const QStringList fonts = {u"Verdana"_qs, u"arial"_qs, u"Tengwar"_qs, u"Courier"_qs};
    QTest::newRow("none") << QStringList() << u"Arial"_qs << QStringList{u"Own"_qs}
                          << QStringList();
    QTest::newRow("by name") << fonts << QString() << QStringList()
                             << QStringList{u"arial"_qs, u"Courier"_qs, u"Tengwar"_qs,
                                            u"Verdana"_qs};
    QTest::newRow("interface's first")
        << fonts << u"Tengwar"_qs << QStringList()
        << QStringList{u"Tengwar"_qs, u"arial"_qs, u"Courier"_qs, u"Verdana"_qs};
    QTest::newRow("own last") << fonts << u"Verdana"_qs << QStringList{u"arial"_qs, u"Courier"_qs}
                              << QStringList{u"Verdana"_qs, u"Tengwar"_qs, u"arial"_qs,
                                             u"Courier"_qs};
    QTest::newRow("interface's is our own")
        << fonts << u"arial"_qs << QStringList{u"arial"_qs}
        << QStringList{u"arial"_qs, u"Courier"_qs, u"Tengwar"_qs, u"Verdana"_qs};
    QTest::newRow("once") << QStringList{u"B"_qs, u"A"_qs, u"B"_qs} << QString() << QStringList()
                          << QStringList{u"A"_qs, u"B"_qs};
}

void tst_FontList::order()
{
    QFETCH(QStringList, installed);
    QFETCH(QString, interfaceFont);
    QFETCH(QStringList, own);
    QFETCH(QStringList, listed);
    QCOMPARE(fontListOrder(installed, interfaceFont, own), listed);
}

void tst_FontList::orderOfInstallationDoesNotMatter()
{
    QStringList fonts = {u"a"_qs, u"A"_qs, u"b"_qs, u"B"_qs, u"Own"_qs, u"own"_qs, u"Interface"_qs};
    const QStringList expected = fontListOrder(fonts, u"Interface"_qs, {u"Own"_qs});
    const auto seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    for (int round = 0; round < 100; ++round) {
        std::shuffle(fonts.begin(), fonts.end(), random);
        QCOMPARE(fontListOrder(fonts, u"Interface"_qs, {u"Own"_qs}), expected);
    }
}

void tst_FontList::installedFontsBeginWithTheInterfaces()
{
    const QStringList fonts = installedFonts({});
    if (fonts.isEmpty())
        QSKIP("no fonts are installed");
    const QFont interfaceFont = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    QCOMPARE(fonts.first(), QFontInfo(interfaceFont).family());
    const QStringList moved = installedFonts({fonts.at(fonts.size() / 2)});
    QCOMPARE(moved.last(), fonts.at(fonts.size() / 2));
    QCOMPARE(moved.size(), fonts.size());
}

void tst_FontList::ownFontsAreRegistered()
{
    QCOMPARE(registerFonts(u"/nowhere/at/all"_qs), QStringList());
    QCOMPARE(registerFonts(QStringLiteral(QUILLON_SOURCE_FOLDER "/cmake")), QStringList());
    const QStringList own = registerFonts(QStringLiteral(QUILLON_PROGRAM_FOLDER "/Fonts"));
    QCOMPARE(own, QStringList{u"Tengwar Quillon"_qs});
    QCOMPARE(installedFonts(own).last(), u"Tengwar Quillon"_qs);
}

QTEST_MAIN(tst_FontList)
#include "tst_fontlist.moc"
