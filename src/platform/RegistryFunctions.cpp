#include "platform/RegistryFunctions.h"

#include <utility>

namespace {

constexpr qint32 success = 0;
constexpr qint32 unknownType = -1;
constexpr qint32 notFound = 2;
constexpr qint32 writeFault = 29;
constexpr qint32 invalidValue = 87;

/// The ordinary text form of a value.
QString textForm(const QVariant &value)
{
    if (value.typeId() == QMetaType::Bool)
        return value.toBool() ? QStringLiteral("True") : QStringLiteral("False");
    return value.toString();
}

/// The value as an integer; none if it is none or out of range.
std::optional<qint32> integerForm(const QVariant &value)
{
    bool isInteger = false;
    const qint64 integer = value.toLongLong(&isInteger);
    return isInteger && std::in_range<qint32>(integer) ? std::optional(qint32(integer))
                                                       : std::nullopt;
}

} // namespace

QVariant RegistryFunctions::ReadSetting(RegistryRoot root, const QString &keyPath,
                                        const QString &valueName) const
{
    QVariant value;
    if (QueryValueByType({root, keyPath}, valueName, value) != success)
        return value;
    // The last character is the NUL after a text. An integer, which the program itself never
    // stores, loses its last digit to the same rule; that stays, since what other programs left in
    // a store has always been read so.
    return textForm(value).chopped(1);
}

qint32 RegistryFunctions::WriteSetting(RegistryRoot root, const QString &keyPath,
                                       const QString &valueName, const QVariant &value,
                                       RegistryType type)
{
    CreateSettingKey(keyPath, root);
    return SetSettingValue(root, keyPath, valueName, value, type);
}

void RegistryFunctions::CreateSettingKey(const QString &keyPath, RegistryRoot root)
{
    store_.createKey({root, keyPath});
}

qint32 RegistryFunctions::SetSettingValue(RegistryRoot root, const QString &keyPath,
                                          const QString &valueName, const QVariant &value,
                                          RegistryType type)
{
    return SetValueByType({root, keyPath}, valueName, type, value);
}

qint32 RegistryFunctions::SetValueByType(const RegistryKey &key, const QString &valueName,
                                         RegistryType type, const QVariant &value)
{
    if (type == RegistryType::Text)
        return store_.setValue(key, valueName, textForm(value)) ? success : writeFault;
    if (type != RegistryType::Integer)
        return success;
    const std::optional<qint32> integer = integerForm(value);
    if (!integer)
        return invalidValue;
    return store_.setValue(key, valueName, *integer) ? success : writeFault;
}

qint32 RegistryFunctions::QueryValueByType(const RegistryKey &key, const QString &valueName,
                                           QVariant &value) const
{
    const std::optional<RegistryValue> stored = store_.value(key, valueName);
    if (!stored)
        return notFound;
    if (const auto *text = std::get_if<QString>(&*stored))
        value = *text + QChar(u'\0');
    else if (const auto *integer = std::get_if<qint32>(&*stored))
        value = *integer;
    else
        return unknownType;
    return success;
}
