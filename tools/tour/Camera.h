#pragma once

#include <QDir>
#include <QImage>
#include <functional>

class QMenu;
class QWidget;

/// With few colours, 256 at most, the files are small; smooth transitions show steps then.
enum class Colours { All, Few };

/// Takes pictures of windows and keeps each as NAME.png in a folder.
class Camera
{
public:
    Camera(const QDir &folder, Colours colours) : folder_(folder), colours_(colours) {}

    /// A window as it stands, with its open menus and lists.
    void take(const QString &name, QWidget &window);

    /// The window with this menu open. A menu inside another is opened with the ones around it.
    void takeMenu(const QString &name, QWidget &window, QMenu &menu);

    /// The modal window that `open` brings up, after `use` has been called with it; it is then
    /// dismissed.
    void takeModal(const QString &name, const std::function<void()> &open,
                   const std::function<void(QWidget &)> &use = {});

    /// Whether every picture could be taken and saved.
    [[nodiscard]] bool isComplete() const { return isComplete_; }

private:
    void save(const QString &name, const QImage &picture);

    QDir folder_;
    Colours colours_;
    bool isComplete_ = true;
};
