#pragma once

#include <QStringList>

/// `rtf2text FILE.rtf`: prints the file's text as UTF-8, with LF for line breaks. `arguments` begin
/// with the command's own name; the result is the exit status. Throws `CommandFailure`, with the
/// offset of the byte, where the file is no RTF or can't be read.
[[nodiscard]] int rtf2text(const QStringList &arguments);

/// `rtf2rtf IN OUT`: reads a file and writes it as the program itself would. OUT is replaced as a
/// whole or not at all. Otherwise as above.
[[nodiscard]] int rtf2rtf(const QStringList &arguments);
