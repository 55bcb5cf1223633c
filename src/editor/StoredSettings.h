#pragma once

#include <QString>
#include <QVariant>

class RegistryFunctions;

/// The program's own view of the registry: values under the current user, all stored as text, flags
/// as "True" and "False", numbers in decimal.
class StoredSettings
{
public:
    explicit StoredSettings(RegistryFunctions &registry) : registry_(registry) {}

    /// The value as text, empty if it is missing.
    [[nodiscard]] QString text(const QString &key, const QString &name) const;

    /// Whether the value is "True", in any letter case.
    [[nodiscard]] bool flag(const QString &key, const QString &name) const;

    /// The value as a 16-bit number, halves rounded to even; 0 if it is missing or no number.
    /// Throws RuntimeError (Overflow), naming the value, for a number beyond 16 bits.
    [[nodiscard]] qint16 number(const QString &key, const QString &name) const;

    /// Stores a text, a flag or a number. Failures are ignored.
    void write(const QString &key, const QString &name, const QVariant &value);

private:
    RegistryFunctions &registry_;
};
