#include "engine/run/ChooseMode.h"

#include "editor/Settings.h"
#include "engine/LoadMode.h"

#include <QFileInfo>

void chooseMode(const QString &name, Settings &settings)
{
    if (QFileInfo(modeFileName(settings.ModePath, name)).isFile())
        settings.CurrentMode = name;
}
