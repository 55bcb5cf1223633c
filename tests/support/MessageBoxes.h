#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <deque>
#include <vector>

/// Answers the message boxes that come up, in order, with the buttons given, and keeps what they
/// said. Only real boxes count: each is found among the open windows and its button is clicked.
class MessageBoxes : public QObject
{
public:
    struct Seen
    {
        QString title;
        QString text;
        QMessageBox::Icon icon;
        QMessageBox::StandardButtons buttons;
        QMessageBox::StandardButton defaultButton;
    };

    /// Boxes beyond those answered get their escape button, or their only one.
    explicit MessageBoxes(std::deque<QMessageBox::StandardButton> answers = {})
        : answers_(std::move(answers))
    {
        timer_.callOnTimeout(this, [this] { answerOpenBox(); });
        timer_.start(0);
    }

    [[nodiscard]] const std::vector<Seen> &seen() const { return seen_; }

private:
    void answerOpenBox()
    {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (box == nullptr || !box->isVisible())
            return;
        const auto *defaultButton = box->defaultButton();
        seen_.push_back(
            {box->windowTitle(), box->text(), box->icon(), box->standardButtons(),
             defaultButton ? box->standardButton(box->defaultButton()) : QMessageBox::NoButton});
        QAbstractButton *answer = box->escapeButton();
        if (!answers_.empty()) {
            answer = box->button(answers_.front());
            answers_.pop_front();
        }
        if (answer == nullptr)
            answer = box->buttons().constLast();
        answer->click();
    }

    QTimer timer_;
    std::deque<QMessageBox::StandardButton> answers_;
    std::vector<Seen> seen_;
};
