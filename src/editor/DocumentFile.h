#pragma once

#include <QString>
#include <optional>

class RichTextBox;
enum class FileType;
struct TextForm;

/// Loads a document into the pane, whatever file its user named; `otherwise` is the form of a text
/// whose bytes leave it open. A text says, for its user, why this can't be; the pane is then as it
/// was. Documents are regular files of at most 100 MB that can be read, and contain no NULs unless
/// they are RTF or UTF-16.
[[nodiscard]] std::optional<QString> tryToLoad(RichTextBox &pane, const QString &path,
                                               const TextForm &otherwise);

/// Saves the pane in a file. A text says, for its user, why this can't be; the file is then as it
/// was.
[[nodiscard]] std::optional<QString> tryToSave(const RichTextBox &pane, const QString &path,
                                               FileType type);
