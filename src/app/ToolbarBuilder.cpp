#include "app/ToolbarBuilder.h"

#include "app/InkIcon.h"
#include "app/MixedButtonStyle.h"

#include <QAction>
#include <QEvent>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>

namespace {

/// Redraws a button when its action becomes mixed or stops being it.
class MixedWatcher final : public QObject
{
public:
    MixedWatcher(QAction &action, QWidget &button) : QObject(&button), button_(button)
    {
        action.installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::DynamicPropertyChange)
            button_.update();
        return false;
    }

private:
    QWidget &button_;
};

QAction *addControl(QToolBar &toolbar, QLatin1StringView key, const ToolbarControls &controls)
{
    const auto found = std::find_if(controls.begin(), controls.end(),
                                    [key](const auto &entry) { return entry.first == key; });
    Q_ASSERT(found != controls.end());
    return toolbar.addWidget(found->second);
}

QAction *addButton(QToolBar &toolbar, const ToolbarEntry &entry, QStyle &toggleStyle)
{
    QAction *action =
        toolbar.addAction(inkIcon(QStringLiteral(":/icons/%1.svg").arg(entry.key)), entry.tip);
    action->setEnabled(false);
    if (!entry.shortcut.isEmpty()) {
        const QKeySequence keys(entry.shortcut, QKeySequence::PortableText);
        action->setShortcut(keys);
        action->setToolTip(
            QStringLiteral("%1 (%2)").arg(entry.tip, keys.toString(QKeySequence::NativeText)));
    }
    if (entry.item == ToolbarItem::Toggle) {
        action->setCheckable(true);
        QWidget *button = toolbar.widgetForAction(action);
        button->setStyle(&toggleStyle);
        new MixedWatcher(*action, *button);
    }
    return action;
}

/// The button that leads to what a narrow window hides has a dark icon under every theme.
void drawExtension(const QToolBar &toolbar)
{
    auto *button = toolbar.findChild<QToolButton *>(QStringLiteral("qt_toolbar_ext_button"));
    if (button == nullptr)
        return;
    button->setIcon(inkIcon(QStringLiteral(":/icons/More.svg")));
    button->setToolTip(QStringLiteral("More"));
    button->setAccessibleName(button->toolTip());
}

} // namespace

void buildToolbar(QToolBar &toolbar, std::span<const ToolbarEntry> table,
                  const ToolbarControls &controls)
{
    auto *toggleStyle = new MixedButtonStyle;
    toggleStyle->setParent(&toolbar);
    for (const ToolbarEntry &entry : table) {
        if (entry.item == ToolbarItem::Line) {
            toolbar.addSeparator();
            continue;
        }
        QAction *action = entry.item == ToolbarItem::Placeholder
                              ? addControl(toolbar, entry.key, controls)
                              : addButton(toolbar, entry, *toggleStyle);
        action->setObjectName(toolbar.objectName() + QLatin1Char('.') + entry.key);
    }
    drawExtension(toolbar);
}
