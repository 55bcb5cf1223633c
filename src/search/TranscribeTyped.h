#pragma once

#include <QString>
#include <optional>

struct Settings;

/// The Tengwar text for a text typed into a dialog, by the current mode; none if the mode can't be
/// loaded or has more rules than a text can be transcribed with. It is done in one go, with a table
/// of its own: it neither disturbs a transcription that runs meanwhile nor heeds its abort, and it
/// warns of nothing.
[[nodiscard]] std::optional<QString> transcribeTyped(const QString &text, const Settings &settings);
