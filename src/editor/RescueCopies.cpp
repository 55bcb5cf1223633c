#include "editor/RescueCopies.h"

#include "platform/RichTextBox.h"

#include <QDateTime>
#include <QDir>

namespace {

/// The time of now and the title; a later time where another copy has that name.
QString unusedName(const QDir &folder, const QString &title)
{
    QDateTime time = QDateTime::currentDateTimeUtc();
    QString path;
    do {
        const QString stamp = time.toString(QStringLiteral("yyyy-MM-dd HH-mm-ss-zzz"));
        path = folder.filePath(QStringLiteral("%1 %2.rtf").arg(stamp, title));
        time = time.addMSecs(1);
    } while (QFileInfo::exists(path));
    return path;
}

} // namespace

void RescueCopies::keep(const RichTextBox &pane, const QString &title) const
{
    constexpr int kept = 20;
    QDir folder(folder_);
    folder.mkpath(QStringLiteral("."));
    pane.SaveFile(unusedName(folder, title), FileType::RichText);

    QStringList oldestLast =
        folder.entryList({QStringLiteral("*.rtf")}, QDir::Files, QDir::Name | QDir::Reversed);
    for (const QString &name : oldestLast.mid(kept))
        folder.remove(name);
}
