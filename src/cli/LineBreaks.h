#pragma once

#include "engine/RuleColumns.h"

#include <QString>
#include <deque>

/// Hands a text to the engine with CR LF for each line break, as the editor's panes hold it, and
/// gives the breaks that the engine passed on the form that they came in.
class LineBreaks
{
public:
    /// The text with each CR LF, CR or LF as CR LF. A CR at the very end waits for the next piece.
    [[nodiscard]] QString unify(QStringView piece);
    /// What waits after the last piece.
    [[nodiscard]] QString finishUnifying();

    /// Takes a step of the transcription of the unified text and appends to `output` what is to be
    /// written for it.
    void restore(Step::Kind kind, qint64 position, QStringView text, QString &output);
    /// What waits after the last step.
    void finishRestoring(QString &output);

private:
    struct Break
    {
        qint64 position; ///< of the CR, in the unified text
        QStringView form;
    };

    void appendBreak(QString &unified, QStringView form);

    bool carriageReturnWaits_ = false; ///< in the text that is being unified
    qint64 unifiedLength_ = 0;
    std::deque<Break> breaks_;         ///< those not yet transcribed
    qint64 passedCarriageReturn_ = -1; ///< position of one that was passed on just now
};
