#include "engine/source/TengwarSigns.h"

#include <QHash>
#include <QTest>

/// The table of signs agrees with itself.
class tst_TengwarSigns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesAreUnique();
    void codesAreUnique();
    void marksOfPrimaryLetters_data();
    void marksOfPrimaryLetters();
    void onlyLettersCarryMarks();
};

namespace {

QString nameOf(std::string_view name)
{
    return QString::fromLatin1(name.data(), qsizetype(name.size()));
}

} // namespace

void tst_TengwarSigns::namesAreUnique()
{
    QHash<QString, int> uses;
    for (const Letter &letter : letters())
        ++uses[nameOf(letter.name)];
    for (const Mark &mark : marks())
        ++uses[nameOf(mark.name)];
    for (auto use = uses.cbegin(); use != uses.cend(); ++use)
        QVERIFY2(use.value() == 1, qPrintable(use.key()));
}

void tst_TengwarSigns::codesAreUnique()
{
    QHash<int, QString> owners;
    const auto claim = [&owners](uchar code, const QString &name) {
        QVERIFY2(!owners.contains(code), qPrintable(name + QStringLiteral(" and ") + owners[code]));
        owners.insert(code, name);
    };
    for (const Letter &letter : letters())
        claim(letter.code, nameOf(letter.name));
    for (const Mark &mark : marks()) {
        if (mark.second != 0) // typed with the codes of another mark
            continue;
        for (const uchar code : mark.codes) {
            if (code != 0)
                claim(code, nameOf(mark.name));
        }
        if (mark.inside != 0)
            claim(mark.inside, nameOf(mark.name));
    }
}

void tst_TengwarSigns::marksOfPrimaryLetters_data()
{
    QTest::addColumn<char>("letter");
    QTest::addColumn<QByteArray>("codes"); // three-dots, dot-below, nasal-bar, doubling-tilde, hook
    QTest::newRow("tinco") << '1' << QByteArray("E\xCA[;+");
    QTest::newRow("calma") << 'a' << QByteArray("E\xC8[;|");
    QTest::newRow("ando") << '2' << QByteArray("#\xC8{:+");
    QTest::newRow("thule") << '3' << QByteArray("D\xC9[;+");
    QTest::newRow("harma") << 'd' << QByteArray("E\xC9[;|");
    QTest::newRow("unque") << 'v' << QByteArray("#\xC8{:|");
    QTest::newRow("ore") << '6' << QByteArray("E\xC9[;+");
    QTest::newRow("romen") << '7' << QByteArray("E\xCB[;+");
    QTest::newRow("lambe") << 'j' << QByteArray("EL[\xB0_");
    QTest::newRow("silme") << '8' << QByteArray("#\xC9[;|");
    QTest::newRow("silme nuquerna") << 'i' << QByteArray("E\xCB[;+");
    QTest::newRow("hyarmen") << '9' << QByteArray("C\xC9[;+");
    QTest::newRow("carrier") << '`' << QByteArray("C\xCB[;}");
    QTest::newRow("digit 3") << '\xF3' << QByteArray("#\xC8[;+");
}

void tst_TengwarSigns::marksOfPrimaryLetters()
{
    QFETCH(const char, letter);
    QFETCH(const QByteArray, codes);
    const std::optional<LetterForm> form = formOf(static_cast<uchar>(letter));
    QVERIFY(form.has_value());
    QByteArray found;
    for (const char *name : {"three-dots", "dot-below", "nasal-bar", "doubling-tilde", "hook"})
        found += static_cast<char>(markCode(*findMark(name), *form));
    QCOMPARE(found, codes);
}

void tst_TengwarSigns::onlyLettersCarryMarks()
{
    for (const Mark &mark : marks()) {
        for (const uchar code : mark.codes)
            QVERIFY2(code == 0 || !formOf(code), mark.name.data());
    }
    QVERIFY(!formOf(' '));
    QVERIFY(!formOf('='));
    QVERIFY(!formOf(0));
}

QTEST_GUILESS_MAIN(tst_TengwarSigns)
#include "tst_tengwarsigns.moc"
