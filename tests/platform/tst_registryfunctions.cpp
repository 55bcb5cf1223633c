#include "platform/RegistryFunctions.h"

#include <QMap>
#include <QTest>

namespace {

/// A store in memory that can be told to refuse writing.
class MemoryStore final : public RegistryStore
{
public:
    bool isWritable = true;
    QMap<QString, QMap<QString, RegistryValue>> keys;

    [[nodiscard]] bool contains(const RegistryKey &key) const override
    {
        return keys.contains(key.path);
    }
    [[nodiscard]] std::optional<RegistryValue> value(const RegistryKey &key,
                                                     const QString &name) const override
    {
        const auto &values = keys[key.path];
        return values.contains(name) ? std::optional(values[name]) : std::nullopt;
    }
    bool createKey(const RegistryKey &key) override
    {
        if (isWritable && !contains(key))
            keys[key.path] = {};
        return isWritable;
    }
    bool setValue(const RegistryKey &key, const QString &name, const RegistryValue &value) override
    {
        if (!isWritable || !contains(key))
            return false;
        keys[key.path][name] = value;
        return true;
    }
};

constexpr RegistryRoot user = RegistryRoot::CurrentUser;
constexpr auto otherType = RegistryType(3);

const QString path = u"Software\\Quillon\\Window"_qs;
const QString name = u"Left"_qs;

} // namespace

class tst_RegistryFunctions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textForms_data();
    void textForms();
    void integers_data();
    void integers();
    void whatIsNoIntegerIsNotStored();
    void otherTypesStoreNothing();
    void missingIsEmpty();
    void unknownTypeIsRefused();
    void queriedTextEndsInNul();
    void writingCreatesTheKey();
    void settingCreatesNoKey();
    void failuresAreStatuses();
};

void tst_RegistryFunctions::textForms_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("text") << QVariant(u"Tengwar Quenya"_qs) << u"Tengwar Quenya"_qs;
    QTest::newRow("empty") << QVariant(QString()) << QString();
    QTest::newRow("spaces") << QVariant(u" a "_qs) << u" a "_qs;
    QTest::newRow("NUL at the end") << QVariant(u"a"_qs + QChar(0)) << u"a"_qs + QChar(0);
    QTest::newRow("True") << QVariant(true) << u"True"_qs;
    QTest::newRow("False") << QVariant(false) << u"False"_qs;
    QTest::newRow("number") << QVariant(1440) << u"1440"_qs;
    QTest::newRow("negative") << QVariant(-32768) << u"-32768"_qs;
    QTest::newRow("fraction") << QVariant(56.7) << u"56.7"_qs;
    QTest::newRow("nothing") << QVariant() << QString();
}

void tst_RegistryFunctions::textForms()
{
    QFETCH(QVariant, value);
    QFETCH(QString, text);
    MemoryStore store;
    RegistryFunctions functions(store);
    QCOMPARE(functions.WriteSetting(user, path, name, value, RegistryType::Text), 0);
    QCOMPARE(store.value({user, path}, name), RegistryValue(text));
    const QVariant read = functions.ReadSetting(user, path, name);
    QVERIFY(read.isValid());
    QCOMPARE(read.toString(), text);
}

void tst_RegistryFunctions::integers_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<qint32>("stored");
    QTest::addColumn<QString>("read");
    QTest::newRow("number") << QVariant(1440) << 1440 << u"144"_qs;
    QTest::newRow("one digit") << QVariant(7) << 7 << QString();
    QTest::newRow("negative") << QVariant(-15) << -15 << u"-1"_qs;
    QTest::newRow("text") << QVariant(u"12"_qs) << 12 << u"1"_qs;
    QTest::newRow("largest") << QVariant(2147483647) << 2147483647 << u"214748364"_qs;
}

void tst_RegistryFunctions::integers()
{
    QFETCH(QVariant, value);
    QFETCH(qint32, stored);
    QFETCH(QString, read);
    MemoryStore store;
    RegistryFunctions functions(store);
    QCOMPARE(functions.WriteSetting(user, path, name, value, RegistryType::Integer), 0);
    QCOMPARE(store.value({user, path}, name), RegistryValue(stored));
    QVariant queried;
    QCOMPARE(functions.QueryValueByType({user, path}, name, queried), 0);
    QCOMPARE(queried, QVariant(stored));
    QCOMPARE(functions.ReadSetting(user, path, name), QVariant(read));
}

void tst_RegistryFunctions::whatIsNoIntegerIsNotStored()
{
    MemoryStore store;
    RegistryFunctions functions(store);
    for (const QVariant &value : {QVariant(u"x"_qs), QVariant(qint64(1) << 31), QVariant()}) {
        QVERIFY(functions.WriteSetting(user, path, name, value, RegistryType::Integer) > 0);
        QVERIFY(!store.value({user, path}, name));
    }
}

void tst_RegistryFunctions::otherTypesStoreNothing()
{
    MemoryStore store;
    RegistryFunctions functions(store);
    QCOMPARE(functions.WriteSetting(user, path, name, u"a"_qs, otherType), 0);
    QVERIFY(store.contains({user, path}));
    QVERIFY(!store.value({user, path}, name));
}

void tst_RegistryFunctions::missingIsEmpty()
{
    MemoryStore store;
    RegistryFunctions functions(store);
    QVERIFY(!functions.ReadSetting(user, path, name).isValid());
    functions.CreateSettingKey(path, user);
    QVERIFY(!functions.ReadSetting(user, path, name).isValid());
    QVariant value(u"kept"_qs);
    QVERIFY(functions.QueryValueByType({user, path}, name, value) > 0);
    QCOMPARE(value, QVariant(u"kept"_qs));
}

void tst_RegistryFunctions::unknownTypeIsRefused()
{
    MemoryStore store;
    RegistryFunctions functions(store);
    functions.CreateSettingKey(path, user);
    store.setValue({user, path}, name, UnknownRegistryValue{u"binary 00"_qs});
    QVariant value(u"kept"_qs);
    QCOMPARE(functions.QueryValueByType({user, path}, name, value), -1);
    QCOMPARE(value, QVariant(u"kept"_qs));
    QVERIFY(!functions.ReadSetting(user, path, name).isValid());
}

void tst_RegistryFunctions::queriedTextEndsInNul()
{
    MemoryStore store;
    RegistryFunctions functions(store);
    functions.WriteSetting(user, path, name, u"a"_qs, RegistryType::Text);
    QVariant value;
    QCOMPARE(functions.QueryValueByType({user, path}, name, value), 0);
    QCOMPARE(value.toString(), QString(u"a"_qs + QChar(0)));
}

void tst_RegistryFunctions::writingCreatesTheKey()
{
    MemoryStore store;
    RegistryFunctions functions(store);
    functions.CreateSettingKey(u"Other"_qs, user);
    QVERIFY(store.contains({user, u"Other"_qs}));
    QCOMPARE(functions.WriteSetting(user, path, name, u"a"_qs, RegistryType::Text), 0);
    QVERIFY(store.contains({user, path}));
}

void tst_RegistryFunctions::settingCreatesNoKey()
{
    MemoryStore store;
    RegistryFunctions functions(store);
    QVERIFY(functions.SetSettingValue(user, path, name, u"a"_qs, RegistryType::Text) > 0);
    QVERIFY(!store.contains({user, path}));
}

void tst_RegistryFunctions::failuresAreStatuses()
{
    MemoryStore store;
    store.isWritable = false;
    RegistryFunctions functions(store);
    QVERIFY(functions.WriteSetting(user, path, name, u"a"_qs, RegistryType::Text) > 0);
    QVERIFY(functions.WriteSetting(user, path, name, 1, RegistryType::Integer) > 0);
    QVERIFY(!functions.ReadSetting(user, path, name).isValid());
}

QTEST_APPLESS_MAIN(tst_RegistryFunctions)
#include "tst_registryfunctions.moc"
