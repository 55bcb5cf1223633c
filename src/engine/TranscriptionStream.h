#pragma once

#include "engine/FoldCase.h"
#include "engine/RuleColumns.h"

#include <functional>

/// A transcription of a text of any length that comes in pieces. What it puts out equals one walk
/// of the whole text, wherever the pieces were cut, and memory does not grow with the text.
class TranscriptionStream
{
public:
    /// Receives each step: what it did, where it began (characters from the start of the text) and
    /// what it puts out.
    using Sink = std::function<void(Step::Kind kind, qint64 position, QStringView output)>;

    /// Throws `RuntimeError` (`Overflow`) for a table with too many rules. `table` must outlive the
    /// stream.
    TranscriptionStream(const ModeTable &table, QString undefinedText, Sink sink);

    void feed(QStringView piece);
    /// Transcribes what is left; call it once, after the last piece.
    void finish();

    [[nodiscard]] bool hadUndefined() const noexcept { return hadUndefined_; }

private:
    void walk(qsizetype lookAhead, LoneControl loneControl);
    [[nodiscard]] QStringView outputOf(const Step &step, qsizetype position) const;

    const ModeTable &table_;
    QString undefinedText_;
    Sink sink_;
    CaseFolding folding_;
    RuleColumns rules_;
    CodedText pending_;          ///< fed and not yet walked
    qint64 pendingPosition_ = 0; ///< where in the text `pending_` begins
    RuleColumns::TagId lastTag_ = RuleColumns::noTag;
    bool hadUndefined_ = false;
};
