#pragma once

#include <QString>
#include <optional>
#include <variant>

/// The predefined keys that every other key lies under.
enum class RegistryRoot : quint32 { CurrentUser = 0x80000001, LocalMachine = 0x80000002 };

/// Names one key of the store: the root and the path under it, such as "Software\Quillon\Window",
/// with "\" between its levels. Letter case makes no difference.
struct RegistryKey
{
    RegistryRoot root = RegistryRoot::CurrentUser;
    QString path;
};

/// A value of a kind that the store keeps but can't interpret, as the store writes it.
struct UnknownRegistryValue
{
    QString form;

    bool operator==(const UnknownRegistryValue &) const = default;
};

/// What a value name holds: text (REG_SZ), an integer (REG_DWORD), or something else.
using RegistryValue = std::variant<QString, qint32, UnknownRegistryValue>;

/// A tree of keys with named values. Key and value names are compared without regard to case, and
/// any text, line breaks and NULs included, is a valid name and a valid text value.
class RegistryStore
{
public:
    virtual ~RegistryStore() = default;

    /// Whether the key has been created, by itself or as a level above another one.
    [[nodiscard]] virtual bool contains(const RegistryKey &key) const = 0;

    /// The value of that name; none if key or value don't exist or can't be read.
    [[nodiscard]] virtual std::optional<RegistryValue> value(const RegistryKey &key,
                                                             const QString &name) const = 0;

    /// Creates the key and every missing level above it. False if the store can't be written.
    virtual bool createKey(const RegistryKey &key) = 0;

    /// Sets a value of an existing key. False if there is no such key or the store can't be
    /// written; the value then stays as it was.
    virtual bool setValue(const RegistryKey &key, const QString &name,
                          const RegistryValue &value) = 0;
};
