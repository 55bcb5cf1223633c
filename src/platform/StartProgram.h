#pragma once

#include <QStringList>

/// Starts another program and doesn't wait for it; it runs on when this one ends. `path` names its
/// file and is never split.
///
/// Throws RuntimeError: FileNotFound, PermissionDenied for a file that may not be run, or
/// PathFileAccess for one that the system can't run.
void startProgram(const QString &path, const QStringList &arguments = {});
