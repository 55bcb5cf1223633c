#include "engine/run/FillModeList.h"

#include "editor/Settings.h"

#include <QComboBox>
#include <QDir>
#include <QListWidget>
#include <algorithm>

namespace {

constexpr qsizetype extensionLength = 4; // ".mod"

/// A file named only ".mod" is a hidden one and so never listed.
QStringList modeNames(const QString &modePath)
{
    // An empty path would mean the working directory.
    if (modePath.isEmpty())
        return {};
    QStringList names;
    const QDir folder(modePath, QStringLiteral("*.mod"), QDir::NoSort,
                      QDir::Files | QDir::CaseSensitive);
    for (const QString &file : folder.entryList())
        names.append(file.chopped(extensionLength));
    std::ranges::sort(names, [](const QString &left, const QString &right) {
        const int order = left.compare(right, Qt::CaseInsensitive);
        return order != 0 ? order < 0 : left < right;
    });
    return names;
}

/// Fills a list that offers clear and addItems; `select` marks the entry of an index, -1 for none.
template<typename List, typename Select> void fill(List &list, Settings &settings, Select select)
{
    list.clear();
    const QStringList names = modeNames(settings.ModePath);
    if (names.isEmpty())
        return;
    list.addItems(names);
    const auto current = static_cast<int>(names.indexOf(settings.CurrentMode));
    select(current);
    if (current < 0)
        settings.CurrentMode.clear();
}

} // namespace

void FillModeList(QComboBox &list, Settings &settings)
{
    fill(list, settings, [&list](int index) { list.setCurrentIndex(index); });
}

void FillModeList(QListWidget &list, Settings &settings)
{
    fill(list, settings, [&list](int index) { list.setCurrentRow(index); });
}
