#pragma once

#include <QByteArrayView>
#include <string_view>

/// A piece of RTF. The views point into the bytes that were read.
struct RtfToken
{
    enum class Kind {
        End,
        GroupStart, ///< {
        GroupEnd,   ///< }
        Word,       ///< \word or \wordN
        Symbol,     ///< a backslash and one character that is no letter; `byte` has it
        HexByte,    ///< \'xx; if not `hasParameter`, only `parameter` digits are there
        Text,       ///< bytes as they stand, none of them a control code except the tab
        Binary,     ///< \binN and its data
    };

    Kind kind = Kind::End;
    bool hasParameter = false;
    uchar byte = 0;
    int parameter = 0;          ///< clamped to 32 bits
    std::string_view text = {}; ///< of Text its bytes, of Word its letters
};

/// Cuts bytes into RTF tokens. It knows no control words except \bin, whose data may hold anything,
/// and never fails: whatever the bytes are, they are cut somehow.
///
///     file    = { "{" | "}" | word | symbol | hex | text }
///     word    = "\" letter { letter } [ "-" ] { digit } [ " " ]
///     hex     = "\'" digit16 digit16
///     symbol  = "\" any other byte; CR LF counts as one
///     text    = bytes from 0x20 up and tabs; other control codes separate texts and are dropped
class RtfTokenizer
{
public:
    explicit RtfTokenizer(QByteArrayView bytes);

    [[nodiscard]] RtfToken next();

    /// Moves to the brace that ends the current group, or to the end. Nothing in between is cut.
    void skipGroup();

    /// Whether a backslash follows anywhere.
    [[nodiscard]] bool hasMoreWords() const { return next_ < afterLastBackslash_; }

    /// How many bytes lie before the next token.
    [[nodiscard]] qsizetype offset() const { return next_ - begin_; }

private:
    [[nodiscard]] RtfToken escape();
    [[nodiscard]] RtfToken word();
    [[nodiscard]] RtfToken hexByte();
    [[nodiscard]] RtfToken text();
    void readParameter(RtfToken &token);

    const char *begin_;
    const char *next_;
    const char *end_;
    const char *afterLastBackslash_;
};
