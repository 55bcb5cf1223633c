#pragma once

#include "platform/RegistryStore.h"

/// A registry store in two text files, one for each root; docs/settings.md describes their form.
///
/// The user's file may be shared by several running programs: each access reads what is on disk,
/// and each change merges one value into it under a lock. A file that can't be understood counts as
/// empty, and is set aside as NAME.damaged before the next change. Failures are never reported
/// beyond the results of the calls.
class FileRegistryStore final : public RegistryStore
{
public:
    /// The current-user root lies in `userFile`, created with its folder when first written; the
    /// local-machine root lies in `systemFile`, which is only read.
    FileRegistryStore(QString userFile, QString systemFile);

    /// Quillon/settings.ini in the user's configuration folder.
    [[nodiscard]] static QString defaultUserFile();

    /// Quillon/settings.ini in the first system-wide configuration folder that has one, else the
    /// place where it would be looked for.
    [[nodiscard]] static QString defaultSystemFile();

    [[nodiscard]] bool contains(const RegistryKey &key) const override;
    [[nodiscard]] std::optional<RegistryValue> value(const RegistryKey &key,
                                                     const QString &name) const override;
    bool createKey(const RegistryKey &key) override;
    bool setValue(const RegistryKey &key, const QString &name, const RegistryValue &value) override;

private:
    QString userFile_;
    QString systemFile_;
};
