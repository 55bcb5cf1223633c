#pragma once

#include <QLatin1StringView>
#include <functional>
#include <initializer_list>

class QAction;
class QWidget;

/// The commands of a window by the names of their menu items and toolbar buttons. A command that
/// nothing has been connected to is disabled.
class Commands
{
public:
    using Handler = std::function<void()>;

    /// `window` owns the actions and shows the errors of commands. All actions exist already.
    explicit Commands(QWidget &window);

    /// The action of that name, which must exist.
    [[nodiscard]] QAction &action(QLatin1StringView name) const;

    /// Enables the actions and lets each run `handler` when it is triggered. The check mark of an
    /// action then follows what the handler makes of it, never the click alone.
    void connect(std::initializer_list<QLatin1StringView> names, const Handler &handler);

private:
    QWidget &window_;
};
