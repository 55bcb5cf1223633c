#include "cli/LineBreaks.h"

namespace {

constexpr QStringView carriageReturnLineFeed = u"\r\n";
constexpr QStringView carriageReturn = u"\r";
constexpr QStringView lineFeed = u"\n";

} // namespace

void LineBreaks::appendBreak(QString &unified, QStringView form)
{
    breaks_.push_back({unifiedLength_ + unified.size(), form});
    unified += carriageReturnLineFeed;
}

QString LineBreaks::unify(QStringView piece)
{
    QString unified;
    unified.reserve(piece.size());
    for (const QChar character : piece) {
        if (std::exchange(carriageReturnWaits_, character == u'\r')) {
            appendBreak(unified, character == u'\n' ? carriageReturnLineFeed : carriageReturn);
            if (character == u'\n')
                continue;
        }
        if (character == u'\n')
            appendBreak(unified, lineFeed);
        else if (character != u'\r')
            unified += character;
    }
    unifiedLength_ += unified.size();
    return unified;
}

QString LineBreaks::finishUnifying()
{
    QString unified;
    if (std::exchange(carriageReturnWaits_, false))
        appendBreak(unified, carriageReturn);
    unifiedLength_ += unified.size();
    return unified;
}

void LineBreaks::restore(Step::Kind kind, qint64 position, QStringView text, QString &output)
{
    while (!breaks_.empty() && breaks_.front().position + 1 < position)
        breaks_.pop_front();
    const bool isPassedOn = kind == Step::Kind::ControlCharacter;
    const bool completesBreak = isPassedOn && text == lineFeed && !breaks_.empty() &&
                                breaks_.front().position == passedCarriageReturn_ &&
                                position == passedCarriageReturn_ + 1;
    if (completesBreak) {
        passedCarriageReturn_ = -1;
        output += breaks_.front().form;
        return;
    }
    finishRestoring(output);
    if (isPassedOn && text == carriageReturn)
        passedCarriageReturn_ = position;
    else
        output += text;
}

void LineBreaks::finishRestoring(QString &output)
{
    if (std::exchange(passedCarriageReturn_, -1) >= 0)
        output += carriageReturn;
}
