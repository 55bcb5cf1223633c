#include "search/TranscribeTyped.h"

#include "editor/Settings.h"
#include "engine/LoadMode.h"
#include "engine/RuntimeError.h"
#include "engine/TranscribeText.h"

std::optional<QString> transcribeTyped(const QString &text, const Settings &settings)
{
    try {
        ModeTable table;
        if (!LoadMode(settings.ModePath, settings.CurrentMode, table))
            return std::nullopt;
        TranscriptionContext context;
        context.UndefinedText = settings.UndefinedText;
        // Modes have rules for é, not for e and an accent that follows it.
        QString composed = text.normalized(QString::NormalizationForm_C);
        return TranscribeText(composed, table, context);
    } catch (const RuntimeError &) {
        // Told at every key, a broken mode would keep the user from typing.
        return std::nullopt;
    }
}
