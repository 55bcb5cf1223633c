#include "platform/RegistryText.h"

#include <QRandomGenerator>
#include <QTest>

Q_DECLARE_METATYPE(RegistryValue)

namespace {

/// A text of characters that a line-based file might trip over.
QString awkwardText(QRandomGenerator &random)
{
    static const QString pieces =
        u"aé\\\"\n\r\t[]=%;# \0\x0B\x1B\x85\xA0\xAD\u2028\uFEFF\uFFFE"_qs + QChar(0) +
        QChar(0xD800) + QChar(0xDC00);
    QString text;
    for (int i = random.bounded(8); i > 0; --i)
        text += pieces[random.bounded(int(pieces.size()))];
    return text;
}

} // namespace

class tst_RegistryText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void values_data();
    void values();
    void damaged_data();
    void damaged();
    void missing();
    void namesIgnoreCase();
    void keysComeWithTheirLevels();
    void handwrittenLinesStay();
    void emptyNames();
    void unknownKindsStay();
    void everyCharacterComesBack();
    void randomTextsComeBack();
};

void tst_RegistryText::values_data()
{
    QTest::addColumn<QByteArray>("form");
    QTest::addColumn<RegistryValue>("value");
    const auto row = [](const char *form, const RegistryValue &value) {
        QTest::newRow(form) << QByteArray(form) << value;
    };
    row(R"("plain")", u"plain"_qs);
    row(R"("")", QString());
    row(R"("  two  ")", u"  two  "_qs);
    row(R"("C:\\Modes \"x\"")", u"C:\\Modes \"x\""_qs);
    row(R"("a\r\n\tb")", u"a\r\n\tb"_qs);
    row(R"("\u0041\u00e9\u00E9")", u"Aéé"_qs);
    row("\"é = ; # [x]\"", u"é = ; # [x]"_qs);
    row("dword 12", 12);
    row("dword  -12", -12);
    row("DWORD 2147483647", 2147483647);
    row("dword 2147483648", UnknownRegistryValue{u"dword 2147483648"_qs});
    row("dword x", UnknownRegistryValue{u"dword x"_qs});
    row("binary 01 02", UnknownRegistryValue{u"binary 01 02"_qs});
}

void tst_RegistryText::values()
{
    QFETCH(QByteArray, form);
    QFETCH(RegistryValue, value);
    for (const char *between : {"=", " = ", "\t=  "}) {
        const auto text =
            RegistryText::parse("[Key]\n \"Name\"" + QByteArray(between) + form + " \r\n");
        QVERIFY(text);
        QCOMPARE(text->value(u"Key"_qs, u"Name"_qs), value);
    }
}

void tst_RegistryText::damaged_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("not UTF-8") << QByteArray("[Key]\n\"Name\" = \"\xE9\"\n");
    QTest::newRow("no value") << QByteArray("[Key]\n\"Name\"\n");
    QTest::newRow("value cut short") << QByteArray("[Key]\n\"Name\" = \"abc\n");
    QTest::newRow("name cut short") << QByteArray("[Key]\n\"Name\n");
    QTest::newRow("more than a value") << QByteArray("[Key]\n\"Name\" = \"a\" b\n");
    QTest::newRow("unknown escape") << QByteArray("[Key]\n\"Name\" = \"\\x\"\n");
    QTest::newRow("escape cut short") << QByteArray("[Key]\n\"Name\" = \"\\u12\"\n");
    QTest::newRow("escape at the end") << QByteArray("[Key]\n\"Name\" = \"\\");
    QTest::newRow("signed escape") << QByteArray("[Key]\n\"Name\" = \"\\u+123\"\n");
    QTest::newRow("value outside keys") << QByteArray("\"Name\" = \"a\"\n");
    QTest::newRow("key cut short") << QByteArray("[Key\n");
    QTest::newRow("empty key") << QByteArray("[]\n");
    QTest::newRow("code in key cut short") << QByteArray("[Key%00]\n");
    QTest::newRow("something else") << QByteArray("Name = a\n");
    QTest::newRow("NULs") << QByteArray("[Key]\n" + QByteArray(100, '\0'));
}

void tst_RegistryText::damaged()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(!RegistryText::parse(bytes));
}

void tst_RegistryText::missing()
{
    const auto text = RegistryText::parse("[Key]\n\"Name\" = \"a\"\n");
    QVERIFY(text);
    QVERIFY(!text->value(u"Key"_qs, u"Other"_qs));
    QVERIFY(!text->value(u"Other"_qs, u"Name"_qs));
    QVERIFY(!text->contains(u"Ke"_qs));
    RegistryText changed = *text;
    QVERIFY(!changed.setValue(u"Other"_qs, u"Name"_qs, 1));
    QCOMPARE(changed.toBytes(), text->toBytes());
}

void tst_RegistryText::namesIgnoreCase()
{
    auto text = RegistryText::parse("[Software\\Écrit]\n\"Naïve\" = \"a\"\n");
    QVERIFY(text);
    QVERIFY(text->contains(u"SOFTWARE\\écrit"_qs));
    QVERIFY(text->setValue(u"software\\ÉCRIT"_qs, u"NAÏVE"_qs, u"b"_qs));
    QCOMPARE(text->value(u"Software\\Écrit"_qs, u"Naïve"_qs), RegistryValue(u"b"_qs));
    QCOMPARE(text->toBytes().count('='), 1);
}

void tst_RegistryText::keysComeWithTheirLevels()
{
    RegistryText text;
    QVERIFY(text.createKey(u"Software\\Quillon\\Window"_qs));
    QVERIFY(!text.createKey(u"software\\quillon\\window"_qs));
    QVERIFY(!text.createKey(QString()));
    for (const QString &level :
         {u"Software"_qs, u"Software\\Quillon"_qs, u"\\Software\\Quillon\\"_qs})
        QVERIFY(text.contains(level));
    QVERIFY(text.setValue(u"Software\\Quillon"_qs, u"Version"_qs, u"1.2.3"_qs));
    const auto again = RegistryText::parse(text.toBytes());
    QVERIFY(again);
    QCOMPARE(again->value(u"Software\\Quillon"_qs, u"Version"_qs), RegistryValue(u"1.2.3"_qs));
    QVERIFY(again->contains(u"Software\\Quillon\\Window"_qs));
}

void tst_RegistryText::handwrittenLinesStay()
{
    auto text =
        RegistryText::parse("; mine\n\n[One]\n  \"A\"=\"1\" \n# why\n\"B\" = dword 2\n\n[Two]\n");
    QVERIFY(text);
    QVERIFY(text->setValue(u"One"_qs, u"C"_qs, u"3"_qs));
    QVERIFY(text->setValue(u"One"_qs, u"b"_qs, 4));
    QVERIFY(text->setValue(u"Two"_qs, u"A"_qs, u"x"_qs));
    QVERIFY(text->createKey(u"Three"_qs));
    QCOMPARE(text->toBytes(),
             QByteArray("; mine\n\n[One]\n  \"A\"=\"1\" \n# why\n\"b\" = dword 4\n\"C\" = \"3\"\n\n"
                        "[Two]\n\"A\" = \"x\"\n\n[Three]\n"));
}

void tst_RegistryText::emptyNames()
{
    RegistryText text;
    text.createKey(u"Key"_qs);
    QVERIFY(text.setValue(u"Key"_qs, QString(), u"a"_qs));
    QVERIFY(text.setValue(u"Key"_qs, u""_qs, u"b"_qs));
    QCOMPARE(text.value(u"Key"_qs, QString()), RegistryValue(u"b"_qs));
    QCOMPARE(text.toBytes(), QByteArray("[Key]\n\"\" = \"b\"\n"));
}

void tst_RegistryText::unknownKindsStay()
{
    auto text = RegistryText::parse("[Key]\n\"A\" = binary 01 02\n");
    QVERIFY(text);
    QVERIFY(!text->setValue(u"Key"_qs, u"B"_qs, UnknownRegistryValue{u"x"_qs}));
    QVERIFY(text->setValue(u"Key"_qs, u"B"_qs, u"x"_qs));
    QCOMPARE(text->toBytes(), QByteArray("[Key]\n\"A\" = binary 01 02\n\"B\" = \"x\"\n"));
}

void tst_RegistryText::everyCharacterComesBack()
{
    QString all;
    for (int code = 0; code <= 0xFFFF; ++code)
        all += QChar(code);
    RegistryText text;
    text.createKey(u"Key"_qs);
    QVERIFY(text.setValue(u"Key"_qs, u"Name"_qs, all));
    const auto again = RegistryText::parse(text.toBytes());
    QVERIFY(again);
    QVERIFY(again->value(u"Key"_qs, u"Name"_qs) == RegistryValue(all));
    QCOMPARE(text.toBytes().count('\n'), 2);
}

void tst_RegistryText::randomTextsComeBack()
{
    const auto seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    for (int round = 0; round < 2000; ++round) {
        const QString path = u"K\\x"_qs + awkwardText(random).remove(u'\\');
        const QString name = awkwardText(random);
        const QString value = awkwardText(random);
        RegistryText text;
        text.createKey(path);
        QVERIFY(text.setValue(path, name, value));
        const auto again = RegistryText::parse(text.toBytes());
        QVERIFY2(again, text.toBytes().constData());
        QCOMPARE(again->value(path, name), RegistryValue(value));
        QCOMPARE(again->toBytes(), text.toBytes());
    }
}

QTEST_APPLESS_MAIN(tst_RegistryText)
#include "tst_registrytext.moc"
