#include "app/MenuBuilder.h"

#include <QMenu>
#include <QMenuBar>
#include <vector>

namespace {

QMenu *addMenu(QMenuBar &menuBar, QMenu *above, const MenuEntry &entry)
{
    QMenu *menu = above ? above->addMenu(entry.caption) : menuBar.addMenu(entry.caption);
    menu->setObjectName(entry.name);
    return menu;
}

QAction *addItem(QMenu &menu, const MenuEntry &entry)
{
    auto *item = new QAction(&menu);
    item->setObjectName(entry.name);
    if (entry.caption == QLatin1StringView("-"))
        item->setSeparator(true);
    else
        item->setText(entry.caption);
    item->setShortcut(QKeySequence(QString(entry.shortcut), QKeySequence::PortableText));
    item->setCheckable(entry.mark == MenuMark::Check);
    item->setEnabled(false);
    // captions alone decide, as "Preferences" and "Exit" would elsewhere move to another menu
    item->setMenuRole(QAction::NoRole);
    menu.addAction(item);
    return item;
}

} // namespace

QList<QAction *> buildMenus(QMenuBar &menuBar, std::span<const MenuEntry> table)
{
    QList<QAction *> items;
    std::vector<QMenu *> open; // the menus around the present entry
    for (std::size_t i = 0; i < table.size(); ++i) {
        const MenuEntry &entry = table[i];
        open.resize(static_cast<std::size_t>(entry.depth));
        QMenu *above = open.empty() ? nullptr : open.back();
        if (i + 1 < table.size() && table[i + 1].depth > entry.depth) {
            open.push_back(addMenu(menuBar, above, entry));
            continue;
        }
        if (above == nullptr)
            continue; // an item stands below a menu, or nowhere
        QAction *item = addItem(*above, entry);
        if (!item->isSeparator())
            items.append(item);
    }
    return items;
}
