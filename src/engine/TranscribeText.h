#pragma once

#include "engine/ModeTable.h"

#include <QString>
#include <functional>

/// What a transcription shares with whoever started it. The caller owns it and may change
/// `AbortRequested` from within `Yield`.
struct TranscriptionContext
{
    double Progress = 0;         ///< written: position of the running step by length, up to 1
    bool AbortRequested = false; ///< read before each step; cleared by the caller
    QString UndefinedText;       ///< put out for each character that no rule covers; may be empty
    bool UndefinedAlert = false; ///< whether the user wants to be warned of such characters
    bool AlertIsDue = false;     ///< written: the warning is to be shown now, by the caller
    std::function<void()> Yield; ///< called once after each step; may be empty
};

/// The longest text that is transcribed, in characters: lengths are 16-bit numbers.
inline constexpr qsizetype maximumTextLength = 32767;

/// Transcribes `text` by the rules of `table` and returns the Tengwar font characters.
///
/// The text is walked once from left to right. At each position the widest window of at most 16
/// characters that a rule matches is replaced; at one width the earliest rule wins. A lone control
/// character passes unchanged, and what no rule covers becomes `UndefinedText`.
///
/// `text` becomes its case-folded copy, as the mode matched it. After an abort the result is what
/// was done until then, and no alert is due. Throws `RuntimeError` (`Overflow`) for a longer text
/// and for a table with more than `ModeTable::maximumRules` rules.
[[nodiscard]] QString TranscribeText(QString &text, const ModeTable &table,
                                     TranscriptionContext &context);
