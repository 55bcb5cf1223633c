#pragma once

#include <QStringList>

/// `transcribe --mode NAME|FILE.mod [--modes FOLDER] [--undefined TEXT] [FILE...]`: transcribes
/// UTF-8 text from files or standard input to standard output, in constant memory. Throws
/// `RuntimeError` and `CommandFailure`.
int transcribe(const QStringList &arguments);
