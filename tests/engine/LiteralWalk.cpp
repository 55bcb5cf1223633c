#include "LiteralWalk.h"

#include "engine/CodePage.h"
#include "engine/FoldCase.h"

namespace {

/// Whether the character is in the code page with a code below the bound.
bool hasCodeBelow(QChar character, int bound)
{
    const auto code = codePageByte(character.unicode());
    return code && *code < bound;
}

bool precedingHolds(const QString &condition, const QString &lastTag)
{
    return condition.isEmpty() || condition == lastTag ||
           (condition.at(0) == u'\r' && (lastTag.isEmpty() || hasCodeBelow(lastTag.at(0), 33)));
}

bool followingHolds(const QString &condition, const QString &next)
{
    return condition.isEmpty() || condition == next ||
           (condition.at(0) == u'\r' && (next.isEmpty() || hasCodeBelow(next.at(0), 48)));
}

} // namespace

void LiteralWalk::run(const QString &original)
{
    const QString text = FoldCase(original, table.CaseMode);
    const qsizetype maxWindow = std::min<qsizetype>(text.size(), 16);
    QString lastTag;
    qsizetype pos = 0;
    while (pos < text.size()) {
        ++steps;
        bool matched = false;
        for (qsizetype width = maxWindow; width >= 1 && !matched; --width) {
            const QString window = text.mid(pos, width);
            const QString next = text.mid(pos + width, 1);
            if (width == 1 && hasCodeBelow(window.at(0), 32)) {
                output += window;
                lastTag = window;
                pos += 1;
                matched = true;
                break;
            }
            for (qsizetype i = 0; i <= table.upperBound(); ++i) {
                if (precedingHolds(table.PrecedingCondition[i], lastTag) &&
                    followingHolds(table.FollowingCondition[i], next) &&
                    table.RomanText[i] == window) {
                    firedRules.insert(i);
                    output += table.TengwarText[i];
                    lastTag = table.LeavesTag[i];
                    pos += width;
                    matched = true;
                    break;
                }
            }
        }
        if (!matched) {
            // A pair of surrogates is one character.
            const bool isPair = text.at(pos).isHighSurrogate() && pos + 1 < text.size() &&
                                text.at(pos + 1).isLowSurrogate();
            output += undefinedText;
            lastTag.clear();
            pos += isPair ? 2 : 1;
            hadUndefined = true;
        }
    }
}
