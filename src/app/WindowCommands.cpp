#include "app/WindowCommands.h"

#include "app/Form1.h"
#include "editor/SharedState.h"
#include "platform/RichTextBox.h"

#include <QAction>
#include <QMenu>

namespace {

using namespace Qt::Literals::StringLiterals;

void connectViewMenu(Form1 &form)
{
    struct Bar
    {
        QLatin1StringView item;
        QWidget *bar;
    };
    const Bar bars[] = {
        {"mnuVStandardToolbar"_L1, form.controls().Toolbar1},
        {"mnuVFormattingToolbar"_L1, form.controls().tbrFormat},
        {"mnuVStatusBar"_L1, form.controls().StatusBar1},
    };
    auto *menu = form.findChild<QMenu *>("mnuView"_L1);
    for (const Bar &entry : bars) {
        form.commands().connect({entry.item}, [&form, bar = entry.bar] {
            bar->setVisible(bar->isHidden());
            form.MoveControls();
        });
        QAction &item = form.commands().action(entry.item);
        QObject::connect(menu, &QMenu::aboutToShow, &item,
                         [&item, bar = entry.bar] { item.setChecked(!bar->isHidden()); });
    }
}

void connectPaneMenu(Form1 &form, const SharedState &state)
{
    struct PaneItem
    {
        QLatin1StringView item;
        PaneCode pane;
    };
    constexpr PaneItem Items[] = {{"mnuPSource"_L1, PaneCode::Source},
                                  {"mnuPTarget"_L1, PaneCode::Target}};
    auto *menu = form.findChild<QMenu *>("mnuPane"_L1);
    for (const PaneItem &entry : Items) {
        form.commands().connect({entry.item}, [pane = form.pane(entry.pane)] { pane->setFocus(); });
        QAction &item = form.commands().action(entry.item);
        QObject::connect(menu, &QMenu::aboutToShow, &item, [&item, &state, code = entry.pane] {
            item.setChecked(state.ActivePane == code);
        });
    }
}

} // namespace

void connectWindowCommands(Form1 &form, const SharedState &state)
{
    connectViewMenu(form);
    connectPaneMenu(form, state);
    form.commands().connect({"mnuFExit"_L1}, [&form] { form.close(); });
}
