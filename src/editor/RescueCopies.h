#pragma once

#include <QString>

class RichTextBox;

/// Copies of texts that are about to be lost although their user never said that they may be. The
/// folder keeps the last twenty, as RTF, under the time at which they were made.
class RescueCopies
{
public:
    /// The folder is made when the first copy needs it.
    explicit RescueCopies(QString folder) : folder_(std::move(folder)) {}

    /// Keeps the pane's content under a name that ends in `title`. Throws RuntimeError naming the
    /// file if it can't be written.
    void keep(const RichTextBox &pane, const QString &title) const;

private:
    QString folder_;
};
