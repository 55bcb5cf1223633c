#include "tools/GlyphVariants.h"

#include "editor/TextEdits.h"
#include "editor/UndoJournal.h"
#include "engine/RuntimeError.h"
#include "platform/RichTextBox.h"

#include <limits>
#include <span>
#include <vector>

namespace {

/// Two shapes of one sign, by their codes in Tengwar fonts, which are the characters' too.
struct Variant
{
    char16_t first;
    char16_t second;
};

// The order is that in which signs are replaced: the caret ends up behind the last one.
constexpr Variant CurledAndStraight[] = {
    {0x70, 0x5B}, {0x3B, 0x27}, {0x30, 0xEE}, {0x2F, 0xEF}, {0x50, 0x7B},
    {0x3A, 0x22}, {0x29, 0xEC}, {0x3F, 0xED}, {0xB0, 0xB8},
};
constexpr Variant LoopedAndStandard[] = {{0xA5, 0x5F}, {0xA3, 0x2B}};

} // namespace

/// A table of variants, read in one direction. No sign that it gives is one that it takes, so each
/// sign is replaced once and one pass over the text does for all.
class GlyphVariants::Conversion
{
public:
    enum class Direction { FirstToSecond, SecondToFirst };

    Conversion(std::span<const Variant> variants, Direction direction)
        : variants_(variants), direction_(direction)
    {
    }

    /// The edits for a text between two positions, and the position behind the last of them where
    /// the variants are taken one after the other; -1 if there is none.
    [[nodiscard]] int edits(QStringView text, int start, int end,
                            std::vector<TextEdit> &edits) const
    {
        size_t lastVariant = 0;
        int caret = -1;
        for (int position = start; position < end; ++position) {
            for (size_t i = 0; i < variants_.size(); ++i) {
                if (text[position] != from(variants_[i]))
                    continue;
                edits.push_back({position, 1, QString(QChar(to(variants_[i]))), position});
                if (i >= lastVariant) {
                    lastVariant = i;
                    caret = position + 1;
                }
                break;
            }
        }
        return caret;
    }

private:
    [[nodiscard]] char16_t from(const Variant &variant) const
    {
        return direction_ == Direction::FirstToSecond ? variant.first : variant.second;
    }
    [[nodiscard]] char16_t to(const Variant &variant) const
    {
        return direction_ == Direction::FirstToSecond ? variant.second : variant.first;
    }

    std::span<const Variant> variants_;
    Direction direction_;
};

void GlyphVariants::curledToStraight()
{
    convert({CurledAndStraight, Conversion::Direction::FirstToSecond});
}

void GlyphVariants::straightToCurled()
{
    convert({CurledAndStraight, Conversion::Direction::SecondToFirst});
}

void GlyphVariants::loopedToStandard()
{
    convert({LoopedAndStandard, Conversion::Direction::FirstToSecond});
}

void GlyphVariants::standardToLooped()
{
    convert({LoopedAndStandard, Conversion::Direction::SecondToFirst});
}

void GlyphVariants::convert(const Conversion &conversion)
{
    journal_.SaveUndoState(PaneCode::Target);
    const QString text = target_.Text();
    const int start = target_.SelStart();
    const int length = target_.SelLength();
    // Selections are kept in 16-bit numbers.
    if (length > 0 && start + length > std::numeric_limits<qint16>::max())
        throw RuntimeError(ErrorNumber::Overflow);
    std::vector<TextEdit> edits;
    const int caret = length > 0 ? conversion.edits(text, start, start + length, edits)
                                 : conversion.edits(text, 0, int(text.size()), edits);
    if (edits.empty())
        return;
    applyEdits(target_, edits);
    target_.setSelStart(length > 0 ? start : caret);
    target_.setSelLength(length);
}
