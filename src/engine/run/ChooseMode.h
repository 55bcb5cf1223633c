#pragma once

class QString;
struct Settings;

/// Makes the mode of that name the current one if its file exists; else nothing changes.
void chooseMode(const QString &name, Settings &settings);
