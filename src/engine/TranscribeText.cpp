#include "engine/TranscribeText.h"

#include "engine/FoldCase.h"
#include "engine/RuleColumns.h"
#include "engine/RuntimeError.h"

QString TranscribeText(QString &text, const ModeTable &table, TranscriptionContext &context)
{
    if (text.size() > maximumTextLength)
        throw RuntimeError(ErrorNumber::Overflow);
    text = FoldCase(text, table.CaseMode);
    context.AlertIsDue = false;

    const RuleColumns rules(table);
    const CodedText coded(text);
    const qsizetype length = coded.size();
    // Where the window is one character wide from the start, no wider one offers it to the rules.
    const auto loneControl = length > 1 ? LoneControl::Offered : LoneControl::PassedOn;
    auto lastTag = RuleColumns::noTag;
    bool hadUndefined = false;
    QString output;
    for (qsizetype position = 0; position < length;) {
        context.Progress = static_cast<double>(position + 1) / static_cast<double>(length);
        if (context.AbortRequested)
            return output;
        const Step step = rules.step(coded, position, loneControl, lastTag);
        switch (step.kind) {
        case Step::Kind::ControlCharacter:
            output += coded.text().at(position);
            break;
        case Step::Kind::Rule:
            output += table.TengwarText[step.rule];
            break;
        case Step::Kind::Undefined:
            output += context.UndefinedText;
            hadUndefined = true;
            break;
        }
        position += step.length;
        if (context.Yield)
            context.Yield();
    }
    context.AlertIsDue = hadUndefined && context.UndefinedAlert;
    return output;
}
