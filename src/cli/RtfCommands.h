#pragma once

class QStringList;

/// `rtf2text FILE.rtf`: prints the file's text as UTF-8, with LF for line breaks. Gives the exit
/// status: 0; 1 if the file can't be read or is no RTF, said on standard error with the offset of
/// the byte; 2 for wrong usage.
[[nodiscard]] int rtf2text(const QStringList &arguments);

/// `rtf2rtf IN OUT`: reads a file and writes it as the program itself would. OUT is replaced as a
/// whole or not at all. Gives the exit status, as above.
[[nodiscard]] int rtf2rtf(const QStringList &arguments);
