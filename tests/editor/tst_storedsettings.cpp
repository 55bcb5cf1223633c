#include "editor/SettingKeys.h"
#include "engine/RuntimeError.h"
#include "support/RegistryFolder.h"

#include <QTest>

class tst_StoredSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbers_data();
    void numbers();
    void numbersBeyondRange_data();
    void numbersBeyondRange();
    void flags_data();
    void flags();
    void whatIsWrittenComesBack();
    void missingValues();
};

void tst_StoredSettings::numbers_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<int>("number");
    const auto row = [](const char *stored, int number) {
        QTest::newRow(stored) << QString::fromLatin1(stored) << number;
    };
    row("0", 0);
    row("1440", 1440);
    row("-15", -15);
    row(" 7 ", 7);
    row("32767", 32767);
    row("-32768", -32768);
    row("32767.4", 32767);
    row("2.5", 2);
    row("3.5", 4);
    row("", 0);
    row("wide", 0);
    row("12x", 0);
    row("nan", 0);
}

void tst_StoredSettings::numbers()
{
    QFETCH(QString, stored);
    RegistryFolder registry;
    registry.settings.write(SettingKey::Window, QStringLiteral("Left"), stored);
    QTEST(int(registry.settings.number(SettingKey::Window, QStringLiteral("Left"))), "number");
}

void tst_StoredSettings::numbersBeyondRange_data()
{
    QTest::addColumn<QString>("stored");
    for (const char *stored :
         {"32768", "-32769", "32767.6", "1e300", "inf", "99999999999999999999"})
        QTest::newRow(stored) << QString::fromLatin1(stored);
}

void tst_StoredSettings::numbersBeyondRange()
{
    QFETCH(QString, stored);
    RegistryFolder registry;
    registry.settings.write(SettingKey::Window, QStringLiteral("Left"), stored);
    try {
        (void)registry.settings.number(SettingKey::Window, QStringLiteral("Left"));
        QFAIL("no error");
    } catch (const RuntimeError &error) {
        QCOMPARE(error.number(), ErrorNumber::Overflow);
        QVERIFY(error.where().contains(stored));
        QVERIFY(error.where().contains(u"Left"));
    }
}

void tst_StoredSettings::flags_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<bool>("flag");
    QTest::newRow("True") << QStringLiteral("True") << true;
    QTest::newRow("true") << QStringLiteral("true") << true;
    QTest::newRow("False") << QStringLiteral("False") << false;
    QTest::newRow("empty") << QString() << false;
    QTest::newRow("else") << QStringLiteral("yes") << false;
}

void tst_StoredSettings::flags()
{
    QFETCH(QString, stored);
    RegistryFolder registry;
    registry.settings.write(SettingKey::Mode, QStringLiteral("Flag"), stored);
    QTEST(registry.settings.flag(SettingKey::Mode, QStringLiteral("Flag")), "flag");
}

void tst_StoredSettings::whatIsWrittenComesBack()
{
    RegistryFolder registry;
    const auto written = [&](const QVariant &value) {
        registry.settings.write(SettingKey::General, QStringLiteral("Value"), value);
        return registry.settings.text(SettingKey::General, QStringLiteral("Value"));
    };
    QCOMPARE(written(true), QStringLiteral("True"));
    QCOMPARE(written(false), QStringLiteral("False"));
    QCOMPARE(written(qint16(-120)), QStringLiteral("-120"));
    QCOMPARE(written(QStringLiteral("\"a\\b\"\n\u00fe")), QStringLiteral("\"a\\b\"\n\u00fe"));
}

void tst_StoredSettings::missingValues()
{
    const RegistryFolder registry;
    const QString name = QStringLiteral("Nothing");
    QVERIFY(registry.settings.text(SettingKey::Window, name).isEmpty());
    QVERIFY(!registry.settings.flag(SettingKey::Window, name));
    QCOMPARE(registry.settings.number(SettingKey::Window, name), qint16(0));
}

QTEST_APPLESS_MAIN(tst_StoredSettings)
#include "tst_storedsettings.moc"
