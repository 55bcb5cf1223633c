#pragma once

#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <functional>

/// Waits for modal dialogs of one name and uses each as a user would, by the function given. What
/// is still open after that is cancelled, so that no test hangs.
class ModalDialog : public QObject
{
public:
    ModalDialog(const char *name, std::function<void(QDialog &)> use)
        : name_(QLatin1StringView(name)), use_(std::move(use))
    {
        timer_.callOnTimeout(this, [this] { useOpenDialog(); });
        timer_.start(0);
    }

    /// How many have been used.
    [[nodiscard]] int uses() const { return uses_; }

private:
    void useOpenDialog()
    {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (dialog == nullptr || dialog->objectName() != name_ || !dialog->isActiveWindow())
            return;
        timer_.stop();
        ++uses_;
        use_(*dialog);
        if (dialog->isVisible())
            dialog->reject();
        timer_.start(0);
    }

    QTimer timer_;
    QString name_;
    std::function<void(QDialog &)> use_;
    int uses_ = 0;
};
