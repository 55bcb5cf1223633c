#include "engine/TranscriptionStream.h"

namespace {

// A step may look at the widest window and the character after it; while more text may come it must
// find both.
constexpr qsizetype lookAheadOfStep = maximumWindow + 1;

} // namespace

TranscriptionStream::TranscriptionStream(const ModeTable &table, QString undefinedText, Sink sink)
    : table_(table), undefinedText_(std::move(undefinedText)), sink_(std::move(sink)),
      folding_(table.CaseMode), rules_(table)
{
}

void TranscriptionStream::feed(QStringView piece)
{
    pending_.append(folding_.fold(piece));
    walk(lookAheadOfStep, LoneControl::PassedOn);
}

void TranscriptionStream::finish()
{
    const bool isSingleCharacter = pendingPosition_ == 0 && pending_.size() == 1;
    walk(1, isSingleCharacter ? LoneControl::PassedOn : LoneControl::Offered);
}

void TranscriptionStream::walk(qsizetype lookAhead, LoneControl loneControl)
{
    qsizetype position = 0;
    while (pending_.size() - position >= lookAhead) {
        const Step step = rules_.step(pending_, position, loneControl, lastTag_);
        hadUndefined_ |= step.kind == Step::Kind::Undefined;
        sink_(step.kind, pendingPosition_ + position, outputOf(step, position));
        position += step.length;
    }
    pending_.removeFirst(position);
    pendingPosition_ += position;
}

QStringView TranscriptionStream::outputOf(const Step &step, qsizetype position) const
{
    switch (step.kind) {
    case Step::Kind::ControlCharacter:
        return pending_.text().sliced(position, 1);
    case Step::Kind::Rule:
        return table_.TengwarText[step.rule];
    case Step::Kind::Undefined:
        return undefinedText_;
    }
    Q_UNREACHABLE();
}
