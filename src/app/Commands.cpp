#include "app/Commands.h"

#include "platform/RunCommand.h"

#include <QAction>
#include <QWidget>

Commands::Commands(QWidget &window) : window_(window) {}

QAction &Commands::action(QLatin1StringView name) const
{
    auto *action = window_.findChild<QAction *>(name);
    Q_ASSERT_X(action, "Commands", name.data());
    return *action;
}

void Commands::connect(std::initializer_list<QLatin1StringView> names, const Handler &handler)
{
    for (const QLatin1StringView name : names) {
        QAction &command = action(name);
        QObject::connect(&command, &QAction::triggered, &window_,
                         [&command, handler, window = &window_](bool checked) {
                             if (command.isCheckable())
                                 command.setChecked(!checked);
                             runCommand(window, handler);
                         });
        command.setEnabled(true);
    }
}
