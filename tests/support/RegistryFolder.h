#pragma once

#include "editor/StoredSettings.h"
#include "platform/FileRegistryStore.h"
#include "platform/RegistryFunctions.h"

#include <QTemporaryDir>

/// A registry of its own in a folder that vanishes with it.
struct RegistryFolder
{
    QTemporaryDir folder;
    FileRegistryStore store{folder.filePath(QStringLiteral("user.ini")),
                            folder.filePath(QStringLiteral("system.ini"))};
    RegistryFunctions registry{store};
    StoredSettings settings{registry};
};
