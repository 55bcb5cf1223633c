#include "app/WindowPlacement.h"

#include "app/Form1.h"
#include "app/Splitter.h"
#include "editor/SettingKeys.h"
#include "editor/StoredSettings.h"
#include "platform/ScreenUnits.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <limits>

namespace {

enum class StoredState : qint16 { Normal = 0, Minimised = 1, Maximised = 2 };

QRect firstGeometry()
{
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    return {screen.width() / 6, screen.height() / 6, qRound(screen.width() / 1.5),
            qRound(screen.height() / 1.5)};
}

QRect storedGeometry(const Form1 &form, const StoredSettings &settings)
{
    const auto horizontal = [&](const QString &name) {
        return toPixels(settings.number(SettingKey::Window, name), twipsPerPixelX(form));
    };
    const auto vertical = [&](const QString &name) {
        return toPixels(settings.number(SettingKey::Window, name), twipsPerPixelY(form));
    };
    return {horizontal(QStringLiteral("Left")), vertical(QStringLiteral("Top")),
            horizontal(QStringLiteral("Width")), vertical(QStringLiteral("Height"))};
}

void restoreGeometry(Form1 &form, const StoredSettings &settings)
{
    const bool isStored = !settings.text(SettingKey::Window, QStringLiteral("Width")).isEmpty();
    QRect geometry = isStored ? storedGeometry(form, settings) : QRect();
    if (geometry.isEmpty())
        geometry = firstGeometry();
    QList<QRect> screens;
    for (const QScreen *screen : QGuiApplication::screens())
        screens.append(screen->availableGeometry());
    form.resize(geometry.size());
    form.move(reachablePlace(geometry, screens));
}

void restoreState(Form1 &form, const StoredSettings &settings)
{
    switch (StoredState{settings.number(SettingKey::Window, QStringLiteral("State"))}) {
    case StoredState::Minimised:
        form.setWindowState(Qt::WindowMinimized);
        break;
    case StoredState::Maximised:
        form.setWindowState(Qt::WindowMaximized);
        break;
    case StoredState::Normal:
        break;
    }
}

void restoreSplit(Form1 &form, const StoredSettings &settings)
{
    const qint16 ruler = settings.number(SettingKey::Window, QStringLiteral("Ruler"));
    const qint64 bar = toTwips(form.controls().imgRuler->width(), twipsPerPixelX(form));
    form.restoreSplit(ruler < 1 ? form.innerWidth() / 2 - bar / 2 : ruler);
}

void restoreBars(const FormControls &controls, const StoredSettings &settings)
{
    if (settings.text(SettingKey::Window, QStringLiteral("Toolbar1")).isEmpty())
        return;
    const auto restore = [&](QWidget *bar, const QString &name) {
        bar->setVisible(settings.flag(SettingKey::Window, name));
    };
    restore(controls.Toolbar1, QStringLiteral("Toolbar1"));
    restore(controls.tbrFormat, QStringLiteral("Toolbar2"));
    restore(controls.StatusBar1, QStringLiteral("Statusbar1"));
}

StoredState stateOf(const Form1 &form)
{
    if (form.isMinimized())
        return StoredState::Minimised;
    return form.isMaximized() ? StoredState::Maximised : StoredState::Normal;
}

/// Stored numbers are twips of 16 bits.
qint16 storedTwips(qint64 twips)
{
    using Limits = std::numeric_limits<qint16>;
    return static_cast<qint16>(std::clamp<qint64>(twips, Limits::min(), Limits::max()));
}

/// Wayland neither puts a window where a program asks nor tells where it is.
bool platformTellsPlaces()
{
    return !QGuiApplication::platformName().startsWith(QLatin1StringView("wayland"));
}

void storeGeometry(const Form1 &form, StoredSettings &settings)
{
    const double perPixelX = twipsPerPixelX(form);
    const double perPixelY = twipsPerPixelY(form);
    const auto store = [&](const QString &name, int twips) {
        settings.write(SettingKey::Window, name, storedTwips(twips));
    };
    const bool isFirst = settings.text(SettingKey::Window, QStringLiteral("Width")).isEmpty();
    if (isFirst || platformTellsPlaces()) {
        store(QStringLiteral("Left"), toTwips(form.x(), perPixelX));
        store(QStringLiteral("Top"), toTwips(form.y(), perPixelY));
    }
    store(QStringLiteral("Width"), toTwips(form.width(), perPixelX));
    store(QStringLiteral("Height"), toTwips(form.height(), perPixelY));
}

} // namespace

void restoreWindow(Form1 &form, const StoredSettings &settings)
{
    restoreGeometry(form, settings);
    restoreState(form, settings);
    restoreSplit(form, settings);
    restoreBars(form.controls(), settings);
    form.MoveControls();
}

void storeWindow(const Form1 &form, StoredSettings &settings)
{
    const FormControls &controls = form.controls();
    const auto store = [&](const QString &name, const QVariant &value) {
        settings.write(SettingKey::Window, name, value);
    };
    const StoredState state = stateOf(form);
    store(QStringLiteral("State"), static_cast<qint16>(state));
    store(QStringLiteral("Ruler"), storedTwips(controls.imgRuler->Left()));
    store(QStringLiteral("Toolbar1"), !controls.Toolbar1->isHidden());
    store(QStringLiteral("Toolbar2"), !controls.tbrFormat->isHidden());
    store(QStringLiteral("Statusbar1"), !controls.StatusBar1->isHidden());
    if (state == StoredState::Normal)
        storeGeometry(form, settings);
}

QPoint reachablePlace(const QRect &window, const QList<QRect> &screens)
{
    constexpr int TitleHeight = 24;
    constexpr int Grip = 80; // as much of the title as a hand finds
    const QRect title(window.topLeft(), QSize(window.width(), TitleHeight));
    const auto isReachable = [&](const QRect &screen) {
        const QRect shown = screen & title;
        return shown.width() >= qMin(Grip, window.width()) && shown.height() >= TitleHeight / 2;
    };
    if (std::any_of(screens.begin(), screens.end(), isReachable))
        return window.topLeft();
    const QRect &screen = screens.first();
    const int right = qMax(screen.left(), screen.right() + 1 - window.width());
    const int bottom = qMax(screen.top(), screen.bottom() + 1 - window.height());
    return {qBound(screen.left(), window.left(), right),
            qBound(screen.top(), window.top(), bottom)};
}
