#pragma once

#include "platform/RegistryStore.h"
#include <QVariant>

/// The types of value that programs store, by the numbers that a registry gives them.
enum class RegistryType : quint32 { Text = 1, Integer = 4 };

/// Reads and writes one named value per call. It knows nothing of which values exist. Failures are
/// never reported to the user: what can't be read is empty, and callers apply their own defaults;
/// the statuses are 0 for success, -1 for a value of unknown type, else a number above 0.
class RegistryFunctions
{
public:
    explicit RegistryFunctions(RegistryStore &store) : store_(store) {}

    /// The value as text, an empty variant if there is none. A text comes back as it was written.
    /// An integer comes back as its decimal text without the last digit.
    [[nodiscard]] QVariant ReadSetting(RegistryRoot root, const QString &keyPath,
                                       const QString &valueName) const;

    /// Stores a value (see SetValueByType), creating every missing level of the key.
    qint32 WriteSetting(RegistryRoot root, const QString &keyPath, const QString &valueName,
                        const QVariant &value, RegistryType type);

    void CreateSettingKey(const QString &keyPath, RegistryRoot root);

    /// Stores a value of an existing key.
    qint32 SetSettingValue(RegistryRoot root, const QString &keyPath, const QString &valueName,
                           const QVariant &value, RegistryType type);

    /// Stores the value converted to the type: numbers and flags as text in their ordinary form
    /// ("2", "True"), anything as a 32-bit integer. Another type stores nothing and gives 0.
    qint32 SetValueByType(const RegistryKey &key, const QString &valueName, RegistryType type,
                          const QVariant &value);

    /// Reads a text, with a NUL after its last character, or an integer. `value` stays as it is on
    /// any failure.
    qint32 QueryValueByType(const RegistryKey &key, const QString &valueName,
                            QVariant &value) const;

private:
    RegistryStore &store_;
};
