#pragma once

#include <QString>
#include <cstdint>
#include <vector>

/// The widest stretch of text that a rule can match, in characters.
inline constexpr int maximumWindow = 16;

/// A stretch of text as rules see it: one code page byte a character.
class CodedText
{
public:
    /// Stands for a TAB and for a character outside the code page. No rule holds a TAB, so neither
    /// is ever matched.
    static constexpr uint8_t unmatchable = '\t';

    /// What `codeAt` gives where there is no byte.
    static constexpr int end = -1;
    static constexpr int outsideCodePage = -2;

    CodedText() : bytes_(maximumWindow, 0) {}
    explicit CodedText(QStringView text) : CodedText() { append(text); }

    void append(QStringView text);
    /// Forgets the first `length` characters.
    void removeFirst(qsizetype length);

    [[nodiscard]] qsizetype size() const noexcept { return text_.size(); }
    [[nodiscard]] QStringView text() const noexcept { return text_; }

    /// The bytes from a position on; 16 are always readable, also at the end of the text.
    [[nodiscard]] const uint8_t *window(qsizetype position) const noexcept
    {
        return bytes_.data() + position;
    }

    /// The code (0 to 255) of the character at a position up to the end, or one of the marks above.
    [[nodiscard]] int codeAt(qsizetype position) const noexcept
    {
        if (position >= text_.size())
            return end;
        const uint8_t byte = bytes_[static_cast<size_t>(position)];
        return byte == unmatchable && text_.at(position) != u'\t' ? outsideCodePage : byte;
    }

    /// Length of the character at a position: 2 where UTF-16 needs a pair for it, else 1.
    [[nodiscard]] int characterLength(qsizetype position) const noexcept
    {
        const bool isPair = text_.at(position).isHighSurrogate() && position + 1 < text_.size() &&
                            text_.at(position + 1).isLowSurrogate();
        return isPair ? 2 : 1;
    }

private:
    QString text_;
    std::vector<uint8_t> bytes_; ///< those of the text, and `maximumWindow` more
};
