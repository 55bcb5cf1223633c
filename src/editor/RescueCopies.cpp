#include "editor/RescueCopies.h"

#include "platform/RichTextBox.h"

#include <QDateTime>
#include <QDir>

void RescueCopies::keep(const RichTextBox &pane, const QString &title) const
{
    constexpr int kept = 20;
    QDir folder(folder_);
    folder.mkpath(QStringLiteral("."));
    const QString time =
        QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyy-MM-dd HH-mm-ss-zzz"));
    pane.SaveFile(folder.filePath(QStringLiteral("%1 %2.rtf").arg(time, title)),
                  FileType::RichText);

    QStringList oldestLast =
        folder.entryList({QStringLiteral("*.rtf")}, QDir::Files, QDir::Name | QDir::Reversed);
    for (const QString &name : oldestLast.mid(kept))
        folder.remove(name);
}
