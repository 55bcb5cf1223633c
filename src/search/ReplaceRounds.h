#pragma once

#include "editor/TextEdits.h"
#include "platform/TextSearch.h"

#include <vector>

/// Replaces matches in a text one after the other. Every round replaces the first match of the
/// whole text as the rounds before have left it, so that a replacement which makes a new match is
/// replaced again, if need be without end.
///
/// A round doesn't search again what the last one has searched for good. Before that round the
/// first match stood at p, so none began earlier. A match that now ends before p lies, with the
/// character after it that decides whether it is a whole word, where nothing has changed: it would
/// have been there before. Hence the next match, m units of UTF-16 long, begins at p - m or later,
/// or one unit earlier where that character needs two. The text is held with a gap two units before
/// that place, so that all that is still to be searched, and the character in front of it, follow
/// the gap. The gap moves back by at most m + 3 units a round and forth to the next match, so that
/// all rounds together take time in proportion to the text, the matches and the replacements.
class ReplaceRounds
{
public:
    /// No text grows beyond this, in characters; one that is longer already can be changed all the
    /// same.
    static constexpr qsizetype MaximumLength = 10'000'000;

    /// `replacement` is in the form of a pane's text.
    ReplaceRounds(QStringView text, TextSearch search, QString replacement);

    /// Replaces one match; false if there is none left. Throws RuntimeError (Overflow), with the
    /// match left in place, where the text would become too long.
    [[nodiscard]] bool round();

    /// How many matches have been replaced.
    [[nodiscard]] qint64 count() const { return count_; }

    /// The end of the last replacement in the text as it is now.
    [[nodiscard]] int caret() const { return caret_; }

    /// What turns the text that the first round found into the text as it is now. A replacement
    /// takes the formatting of the first character of its match.
    [[nodiscard]] std::vector<TextEdit> edits() const;

private:
    [[nodiscard]] qsizetype length() const { return gapStart_ + characters_.size() - gapEnd_; }
    void moveGap(qsizetype distance);
    void growGap(qsizetype length);

    TextSearch search_;
    QString replacement_;
    QString characters_; ///< before the gap, the gap, after the gap
    /// For each character its place in the first text or, if it came with a replacement, -1 - the
    /// place of the character that lends it its formatting.
    std::vector<qint32> origins_;
    qsizetype firstLength_;
    qsizetype gapStart_ = 0;
    qsizetype gapEnd_ = 0;
    qint64 count_ = 0;
    int caret_ = 0;
};
