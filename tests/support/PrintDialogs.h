#pragma once

#include <QAbstractPrintDialog>
#include <QApplication>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QTimer>

/// Answers the print dialogs that come up: lets them print to a PDF file, or cancels them.
class PrintDialogs : public QObject
{
public:
    /// Cancels if no file is given. The file must not exist.
    explicit PrintDialogs(const QString &pdfFile = {}) : pdfFile_(pdfFile)
    {
        timer_.callOnTimeout(this, [this] { answerOpenDialog(); });
        timer_.start(0);
    }

    /// How many dialogs came up.
    [[nodiscard]] int count() const { return count_; }

private:
    void answerOpenDialog()
    {
        auto *dialog = qobject_cast<QPrintDialog *>(QApplication::activeModalWidget());
        if (dialog == nullptr || !dialog->isVisible())
            return;
        ++count_;
        if (pdfFile_.isEmpty()) {
            dialog->reject();
            return;
        }
        dialog->findChild<QLineEdit *>(QStringLiteral("filename"))->setText(pdfFile_);
        static_cast<QDialog *>(dialog)->accept();
    }

    QTimer timer_;
    QString pdfFile_;
    int count_ = 0;
};
