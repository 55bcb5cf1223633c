#pragma once

#include "editor/StoredSettings.h"
#include "platform/FileRegistryStore.h"
#include "platform/RegistryFunctions.h"

#include <QTemporaryDir>

/// Stored settings of one test's own, empty at first.
struct SettingsFile
{
    QTemporaryDir folder;
    FileRegistryStore store{folder.filePath(QStringLiteral("user.ini")),
                            folder.filePath(QStringLiteral("system.ini"))};
    RegistryFunctions registry{store};
    StoredSettings stored{registry};
};
