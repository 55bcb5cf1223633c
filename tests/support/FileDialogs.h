#pragma once

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QTimer>
#include <deque>
#include <optional>

/// Fills in the file dialogs that come up, in order, as their user would: chooses a filter, types a
/// name and accepts. A dialog that stays open is filled in again; beyond the answers it is
/// cancelled.
class FileDialogs : public QObject
{
public:
    struct Answer
    {
        QString name;
        QString filter = {}; ///< empty to keep the one that the dialog starts with
    };
    /// How a dialog looked before it was filled in.
    struct Seen
    {
        QString title;
        QString name;
        QString filter;
        QStringList filters;
    };

    explicit FileDialogs(std::deque<Answer> answers = {}) : answers_(std::move(answers))
    {
        timer_.callOnTimeout(this, [this] { fillInOpenDialog(); });
        timer_.start(0);
    }

    [[nodiscard]] const QList<Seen> &seen() const { return seen_; }

private:
    void fillInOpenDialog()
    {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        if (dialog == nullptr || !dialog->isVisible() ||
            dialog->objectName() != QStringLiteral("CommonDialog1"))
            return;
        auto *name = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        seen_ += {dialog->windowTitle(), name->text(), dialog->selectedNameFilter(),
                  dialog->nameFilters()};
        if (answers_.empty()) {
            dialog->reject();
            return;
        }
        const Answer answer = answers_.front();
        answers_.pop_front();
        if (!answer.filter.isEmpty()) {
            dialog->selectNameFilter(answer.filter);
            Q_EMIT dialog->filterSelected(answer.filter); // as a choice by hand does
        }
        // a file marked in the list would count more than a name that nobody typed
        dialog->findChild<QListView *>(QStringLiteral("listView"))->clearSelection();
        name->setText(answer.name);
        static_cast<QDialog *>(dialog)->accept();
    }

    QTimer timer_;
    std::deque<Answer> answers_;
    QList<Seen> seen_;
};
