#pragma once

#include <QStringList>

/// `mode pack SOURCE OUT.mod`, `mode unpack FILE.mod`, `mode list [--modes FOLDER]` and
/// `mode check FILE.mod`: work on modes as readable sources and as files. Throws `CommandFailure`
/// and `RuntimeError`.
int mode(const QStringList &arguments);
