#include "search/ReplaceRounds.h"

#include "engine/RuntimeError.h"

#include <algorithm>
#include <numeric>

namespace {

/// The place, in the first text, of the character that lends one of this origin its formatting.
constexpr qint32 formatOf(qint32 origin)
{
    return origin < 0 ? -1 - origin : origin;
}

constexpr qint32 insertedWithFormatOf(qint32 place)
{
    return -1 - place;
}

/// Collects edits from the characters of the changed text, given in their order.
class EditCollector
{
public:
    void add(QChar character, qint32 origin)
    {
        if (origin >= 0) {
            removeUpTo(origin);
            next_ = origin + 1;
            return;
        }
        const int format = formatOf(origin);
        if (inserted_ == 0 || edits_.back().formatOf != format) {
            edits_.push_back({next_, 0, {}, format});
            ++inserted_;
        }
        edits_.back().text += character;
    }

    std::vector<TextEdit> finish(qsizetype length)
    {
        removeUpTo(qint32(length));
        return std::move(edits_);
    }

private:
    /// Lets the first of the edits at this place remove what is gone before a character that
    /// stayed.
    void removeUpTo(qint32 place)
    {
        if (inserted_ == 0 && place > next_)
            edits_.push_back({next_, place - next_, {}, next_});
        for (size_t i = edits_.size() - inserted_; i < edits_.size(); ++i) {
            TextEdit &edit = edits_[i];
            if (i == edits_.size() - inserted_)
                edit.length = place - next_;
            else
                edit.start = place;
        }
        inserted_ = 0;
    }

    std::vector<TextEdit> edits_;
    qint32 next_ = 0;     ///< the character of the first text that would come next
    size_t inserted_ = 0; ///< edits so far at this place
};

} // namespace

ReplaceRounds::ReplaceRounds(QStringView text, TextSearch search, QString replacement)
    : search_(std::move(search)), replacement_(std::move(replacement)),
      characters_(text.toString()), origins_(size_t(text.size())), firstLength_(text.size())
{
    std::iota(origins_.begin(), origins_.end(), 0);
}

bool ReplaceRounds::round()
{
    const QStringView afterGap = QStringView(characters_).sliced(gapEnd_);
    const qsizetype start = gapStart_ > 0 ? TextSearch::Context : 0;
    const qsizetype match = search_.find(afterGap, start, afterGap.size());
    if (match < 0)
        return false;
    const qsizetype growth = replacement_.size() - search_.length();
    if (growth > 0 && length() + growth > MaximumLength)
        throw RuntimeError(ErrorNumber::Overflow);
    moveGap(match);
    const qint32 origin = insertedWithFormatOf(formatOf(origins_[size_t(gapEnd_)]));
    gapEnd_ += search_.length();
    growGap(replacement_.size());
    gapEnd_ -= replacement_.size();
    std::copy(replacement_.cbegin(), replacement_.cend(), characters_.begin() + gapEnd_);
    std::fill_n(origins_.begin() + gapEnd_, replacement_.size(), origin);
    caret_ = int(gapStart_ + replacement_.size());
    const qsizetype back = search_.length() + 2 * TextSearch::Context - 1;
    moveGap(-std::min(gapStart_, back));
    ++count_;
    return true;
}

void ReplaceRounds::moveGap(qsizetype distance)
{
    const auto move = [&](auto begin) {
        if (distance > 0)
            std::copy(begin + gapEnd_, begin + gapEnd_ + distance, begin + gapStart_);
        else
            std::copy_backward(begin + gapStart_ + distance, begin + gapStart_, begin + gapEnd_);
    };
    move(characters_.begin());
    move(origins_.begin());
    gapStart_ += distance;
    gapEnd_ += distance;
}

void ReplaceRounds::growGap(qsizetype length)
{
    const qsizetype missing = length - (gapEnd_ - gapStart_);
    if (missing <= 0)
        return;
    // By as much again as there is, so that growing is rare.
    const qsizetype growth = missing + characters_.size();
    characters_.insert(gapEnd_, QString(growth, QChar::Null));
    origins_.insert(origins_.begin() + gapEnd_, size_t(growth), 0);
    gapEnd_ += growth;
}

std::vector<TextEdit> ReplaceRounds::edits() const
{
    EditCollector collector;
    for (qsizetype i = 0; i < characters_.size(); ++i) {
        if (i < gapStart_ || i >= gapEnd_)
            collector.add(characters_.at(i), origins_[size_t(i)]);
    }
    return collector.finish(firstLength_);
}
