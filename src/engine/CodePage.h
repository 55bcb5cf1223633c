#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

/// Code page 1252, the character set of mode files and Tengwar fonts. Its five unassigned bytes
/// (81, 8D, 8F, 90, 9D) stand for the characters U+0081 and so on, so that every byte is a
/// character and comes back as the same byte.

/// The character of a byte.
[[nodiscard]] char16_t codePageCharacter(uchar byte) noexcept;

/// The byte of a character; none for a character outside the code page, also where a system
/// conversion would find something similar.
[[nodiscard]] std::optional<uchar> codePageByte(char16_t character) noexcept;

/// The text of a run of bytes.
[[nodiscard]] QString fromCodePage(QByteArrayView bytes);

/// The bytes of a text; none if any character lies outside the code page.
[[nodiscard]] std::optional<QByteArray> toCodePage(QStringView text);
