#pragma once

#include <QString>

class RegistryFunctions;
enum class RegistryRoot : quint32;

/// Reads one value of the registry as a text. A text is cut at its first NUL; an integer becomes
/// "&h" and its four bytes in hexadecimal, two digits each, the highest first.
///
/// False, with `value` as it was, if there is no such key or value, if it is of another type, or if
/// the text with the NUL at its end is longer than 1024 characters.
[[nodiscard]] bool GetKeyValue(const RegistryFunctions &registry, RegistryRoot root,
                               const QString &keyName, const QString &valueName, QString &value);
