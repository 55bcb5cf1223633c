#include "about/GetKeyValue.h"
#include "support/RegistryFolder.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

class tst_GetKeyValue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void values_data();
    void values();
    void rootsAreApart();
};

void tst_GetKeyValue::values_data()
{
    QTest::addColumn<QString>("line"); // of the store's file, under the key
    QTest::addColumn<std::optional<QString>>("expected");
    const auto row = [](const char *name, const QString &line,
                        const std::optional<QString> &expected) {
        QTest::newRow(name) << line << expected;
    };
    const auto text = [](const QString &stored) { return u"\"PATH\" = \""_s + stored + u'"'; };
    const auto letters = [](int count) { return QString(count, u'x'); };
    row("text", text(u"/usr/bin/info"_s), u"/usr/bin/info"_s);
    row("empty text", text({}), QString());
    row("text with a NUL", text(u"cut\\u0000here\\u0000"_s), u"cut"_s);
    row("NUL alone", text(u"\\u0000"_s), QString());
    row("as long as the buffer", text(letters(1023)), letters(1023));
    row("longer than the buffer", text(letters(1024)), std::nullopt);
    row("longer, with a NUL before", text(u"cut\\u0000"_s + letters(1024)), std::nullopt);
    row("number", u"\"PATH\" = dword 12"_s, u"&h0000000C"_s);
    row("every byte", u"\"PATH\" = dword 2018915346"_s, u"&h78563412"_s);
    row("negative number", u"\"PATH\" = dword -2"_s, u"&hFFFFFFFE"_s);
    row("zero", u"\"PATH\" = dword 0"_s, u"&h00000000"_s);
    row("other type", u"\"PATH\" = hex 01 02"_s, std::nullopt);
    row("other value", u"\"OTHER\" = \"a\""_s, std::nullopt);
    row("no such key", u"[Other]"_s, std::nullopt);
}

void tst_GetKeyValue::values()
{
    QFETCH(QString, line);
    QFETCH(std::optional<QString>, expected);
    const RegistryFolder registry;
    QFile file(registry.folder.filePath(u"system.ini"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    if (!line.startsWith(u'['))
        file.write("[SOFTWARE\\Some Key]\n");
    file.write(line.toUtf8() + '\n');
    file.close();
    QString value = u"before"_s;
    QCOMPARE(GetKeyValue(registry.registry, RegistryRoot::LocalMachine, u"Software\\some key"_s,
                         u"Path"_s, value),
             expected.has_value());
    QCOMPARE(value, expected.value_or(u"before"_s));
}

void tst_GetKeyValue::rootsAreApart()
{
    RegistryFolder registry;
    registry.settings.write(u"SOFTWARE\\Some Key"_s, u"PATH"_s, u"mine"_s);
    QString value;
    QVERIFY(!GetKeyValue(registry.registry, RegistryRoot::LocalMachine, u"SOFTWARE\\Some Key"_s,
                         u"PATH"_s, value));
    QVERIFY(GetKeyValue(registry.registry, RegistryRoot::CurrentUser, u"SOFTWARE\\Some Key"_s,
                        u"PATH"_s, value));
    QCOMPARE(value, u"mine"_s);
}

QTEST_GUILESS_MAIN(tst_GetKeyValue)
#include "tst_getkeyvalue.moc"
