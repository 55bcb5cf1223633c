#include "app/FocusTravel.h"

#include "app/Form1.h"
#include "app/Splitter.h"
#include "app/ToolbarCombo.h"

#include <QShortcut>
#include <algorithm>
#include <iterator>
#include <vector>

namespace {

enum class Step { Back = -1, On = 1 };

void travel(Form1 &form, Step step)
{
    const FormControls &controls = form.controls();
    std::vector<QWidget *> stops = {nullptr}; // the active pane
    const std::initializer_list<QWidget *> others = {controls.cboModeName, controls.cboFontName,
                                                     controls.cboFontSize, controls.imgRuler};
    std::copy_if(others.begin(), others.end(), std::back_inserter(stops),
                 [](const QWidget *stop) { return stop->isVisible(); });
    const auto present = std::find(stops.begin(), stops.end(), form.focusWidget());
    const size_t place = present == stops.end() ? 0 : size_t(present - stops.begin());
    QWidget *next = stops[(place + stops.size() + size_t(step)) % stops.size()];
    if (next != nullptr)
        next->setFocus(Qt::ShortcutFocusReason);
    else
        form.SetRTBFocus();
}

} // namespace

void connectFocusTravel(Form1 &form)
{
    const auto connectKey = [&form](const QKeySequence &key, Step step) {
        auto *shortcut = new QShortcut(key, &form);
        QObject::connect(shortcut, &QShortcut::activated, &form,
                         [&form, step] { travel(form, step); });
    };
    connectKey(Qt::Key_F6, Step::On);
    connectKey(Qt::SHIFT | Qt::Key_F6, Step::Back);
}
