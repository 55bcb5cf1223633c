#pragma once

#include <QtGlobal>

#include <array>
#include <optional>
#include <span>
#include <string_view>

/// The signs of the classic single-byte Tengwar encoding, and where each mark sits on each letter.

/// The horizontal position of a mark over or under its letter, named after the width it suits.
enum class MarkPlace : quint8 { Wide, Medium, Stem, Narrow };

/// The width of a bar or tilde.
enum class BarWidth : quint8 { Wide, Single };

/// The kind of s-hook a letter takes.
enum class HookKind : quint8 { Right, Left, Lambe, Carrier };

/// What decides the code of a mark, and so its rank: marks follow their letter in this order.
enum class MarkKind : quint8 { BarAbove, BarBelow, DotsBelow, Above, Below, Hook };

/// How marks sit on one letter.
struct LetterForm
{
    MarkPlace above;
    MarkPlace below;
    BarWidth bar;
    HookKind hook;
    bool hasInside; ///< lambe and alda take some marks inside their bowl

    bool operator==(const LetterForm &) const = default;
};

/// A sign that stands by itself: a letter, a digit, a punctuation sign or the space.
struct Letter
{
    uchar code;
    std::string_view name;
};

/// A mark that is stored after its letter and drawn over, under or beside it.
struct Mark
{
    std::string_view name;
    MarkKind kind;
    /// The codes for the kind's positions: MarkPlace for Above, Below and DotsBelow, BarWidth for
    /// the bars (the last two unused, 0), HookKind for hooks.
    std::array<uchar, 4> codes;
    uchar inside = 0; ///< the code inside the bowl of lambe and alda; 0: there is none
    /// A second code that follows the first: a doubled sign is typed once wide and once stemmed.
    uchar second = 0;
};

/// All named signs that stand by themselves.
[[nodiscard]] std::span<const Letter> letters();

/// All named marks.
[[nodiscard]] std::span<const Mark> marks();

[[nodiscard]] const Letter *findLetter(std::string_view name);
[[nodiscard]] const Mark *findMark(std::string_view name);

/// The form of the letter with that code; empty for codes that carry no marks.
[[nodiscard]] std::optional<LetterForm> formOf(uchar code);

/// The code of \a mark on a letter of the form \a form.
[[nodiscard]] uchar markCode(const Mark &mark, const LetterForm &form);

/// The mark that has \a code at one of its positions, or null. Near-duplicate codes count as
/// theirs.
[[nodiscard]] const Mark *markOfCode(uchar code);

/// The code that modes use where the encoding has two for one mark at one position.
[[nodiscard]] uchar preferredCode(uchar code);

/// The letter to write instead of \a code under a mark above: silme and esse turn, others stay.
[[nodiscard]] uchar turnedLetter(uchar code);
