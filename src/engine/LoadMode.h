#pragma once

#include "engine/ModeTable.h"

class QIODevice;

/// Length of every record of a mode file, in bytes. Record 1 is the header: the comment, a TAB, and
/// two characters that give `CaseMode`. Every other record is a rule: five fields, each ended by a
/// TAB. What follows is padding. A record whose first byte is 9 or less is no rule and is skipped.
inline constexpr int RuleRecordLength = 36;

/// The file of a mode: the folder, the platform's separator, the name and ".mod".
[[nodiscard]] QString modeFileName(const QString &modePath, const QString &modeName);

/// Replaces `table` by the mode `currentMode` of the folder `modePath`. Returns false, with the
/// table emptied, when there is no such file (a folder of that name is none). Throws
/// `RuntimeError`: `InvalidProcedureCall` for a header or rule with too few TABs, `TypeMismatch`
/// for a header number that is none, `PathFileAccess` or `DeviceIo` when the file cannot be read;
/// the table is then empty.
bool LoadMode(const QString &modePath, const QString &currentMode, ModeTable &table);

/// The same for a file by its full name.
bool loadModeFile(const QString &fileName, ModeTable &table);

/// Reads a mode from an open device; `name` is how errors call it. Rules beyond those that a text
/// could be transcribed with are checked but not kept, so that memory stays bounded.
void readMode(QIODevice &device, const QString &name, ModeTable &table);

/// The comment in the header of a mode file, without trailing blanks. Empty, with no error, when
/// the file cannot be read or its header has no TAB.
[[nodiscard]] QString readModeComment(const QString &fileName);
