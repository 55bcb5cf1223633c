#pragma once

#include "engine/CodePage.h"

#include <QChar>

/// The code of a character as people are told it: its byte in code page 1252, else its number in
/// Unicode.
[[nodiscard]] inline int characterCode(QChar character)
{
    const std::optional<uchar> byte = codePageByte(character.unicode());
    return byte ? *byte : character.unicode();
}
