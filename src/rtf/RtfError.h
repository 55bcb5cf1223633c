#pragma once

#include <QtGlobal>

/// Why RTF could not be read, and where.
struct RtfError
{
    enum class What {
        NotRtf,     ///< the bytes don't begin with {\rtf; they may be plain text
        TooLarge,   ///< more than RtfLimits allows
        ReadFailed, ///< the device reported an error
    };

    What what = What::NotRtf;
    qint64 byteOffset = 0; ///< the first byte that could not be taken

    bool operator==(const RtfError &) const = default;
};

/// What one document may hold. The bounds keep a hostile file within seconds and a few hundred
/// megabytes; they lie far beyond anything that a person writes.
struct RtfLimits
{
    static constexpr qint64 characters = 40'000'000;  ///< UTF-16 units
    static constexpr qint64 pieces = 1'000'000;       ///< paragraphs and runs of one format
    static constexpr qsizetype tableEntries = 65'536; ///< fonts, colours, lists; more are left out
    static constexpr qsizetype groupDepth = 1'000;    ///< deeper braces are only counted
    static constexpr qsizetype tabStops = 64;         ///< in one paragraph
    static constexpr int twips = 31'680;              ///< largest length: 22 inches
    static constexpr int halfPoints = 3'276;          ///< largest font size: 1638 points
    static constexpr int fallbackUnits = 32;          ///< skipped after a \u
};
