#include "platform/CommonDialog.h"

#include "platform/MessageBox.h"
#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPrintDialog>
#include <QRegularExpression>

namespace {

const QString dialogName = QStringLiteral("CommonDialog1");

/// The extension that a filter such as "Text file (*.txt)" names; empty for one that names none.
QString extensionOf(const QString &filter)
{
    static const QRegularExpression pattern(QStringLiteral("\\(\\*\\.(\\w+)\\)$"));
    return pattern.match(filter).captured(1);
}

/// The toolkit's own dialog on every platform, since others can't be kept open.
class FileDialog final : public QFileDialog
{
public:
    FileDialog(QWidget *window, AcceptMode mode, const FileDialogRequest &request);

    [[nodiscard]] ChosenFile chosen() const;

protected:
    void done(int result) override;

private:
    [[nodiscard]] bool mayReplace(const QString &path);
    void tieLabel(QLatin1StringView label, QLatin1StringView control);

    const FileDialogRequest &request_;
};

FileDialog::FileDialog(QWidget *window, AcceptMode mode, const FileDialogRequest &request)
    : QFileDialog(window, request.title), request_(request)
{
    setObjectName(dialogName);
    setOptions(DontUseNativeDialog | DontConfirmOverwrite); // done() asks, after its own checks
    setAcceptMode(mode);
    setFileMode(AnyFile);
    tieLabel(QLatin1StringView("lookInLabel"), QLatin1StringView("lookInCombo"));
    tieLabel(QLatin1StringView("fileTypeLabel"), QLatin1StringView("fileTypeCombo"));
    setNameFilters(request.filters);
    if (mode == AcceptSave) {
        connect(this, &QFileDialog::filterSelected, this,
                [this](const QString &filter) { setDefaultSuffix(extensionOf(filter)); });
        setDefaultSuffix(extensionOf(request.filters.value(request.filterIndex - 1)));
    }
    selectNameFilter(request.filters.value(request.filterIndex - 1));
    if (!request.fileName.isEmpty()) {
        setDirectory(QFileInfo(request.fileName).absolutePath());
        selectFile(request.fileName);
    }
}

ChosenFile FileDialog::chosen() const
{
    return {.path = QFileInfo(selectedFiles().constFirst()).absoluteFilePath(),
            .filterIndex = int(request_.filters.indexOf(selectedNameFilter())) + 1};
}

void FileDialog::done(int result)
{
    if (result == Accepted) {
        const ChosenFile file = chosen();
        if (acceptMode() == AcceptSave && !mayReplace(file.path))
            return;
        if (const auto complaint = request_.refusal(file)) {
            showMessage(
                this, {.text = *complaint, .title = request_.title, .icon = QMessageBox::Warning});
            return;
        }
    }
    QFileDialog::done(result);
}

bool FileDialog::mayReplace(const QString &path)
{
    if (!QFileInfo(path).isFile())
        return true;
    const Message question = {.text = QCoreApplication::translate("CommonDialog",
                                                                  "%1 already exists.\n"
                                                                  "Do you want to replace it?")
                                          .arg(path),
                              .title = request_.title,
                              .icon = QMessageBox::Warning,
                              .buttons = QMessageBox::Yes | QMessageBox::No,
                              .defaultButton = QMessageBox::No};
    return showMessage(this, question) == QMessageBox::Yes;
}

/// Tells screen readers of a label that the toolkit only puts beside its control.
void FileDialog::tieLabel(QLatin1StringView label, QLatin1StringView control)
{
    if (auto *found = findChild<QLabel *>(label))
        found->setBuddy(findChild<QWidget *>(control));
}

/// Names the boxes and lists for screen readers. The toolkit makes each label after what it labels.
void nameControls(const QFontDialog &dialog)
{
    QWidgetList unnamed;
    for (QObject *child : dialog.children()) {
        if (const auto *label = qobject_cast<QLabel *>(child)) {
            for (QWidget *control : std::as_const(unnamed))
                control->setAccessibleName(label->text().remove(u'&'));
            unnamed.clear();
        } else if (qobject_cast<QLineEdit *>(child) || qobject_cast<QListView *>(child)) {
            unnamed.append(static_cast<QWidget *>(child));
        }
    }
}

std::optional<ChosenFile> chosenIn(FileDialog &dialog)
{
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.chosen();
}

} // namespace

std::optional<ChosenFile> showOpenDialog(QWidget *window, const FileDialogRequest &request)
{
    FileDialog dialog(window, QFileDialog::AcceptOpen, request);
    return chosenIn(dialog);
}

std::optional<ChosenFile> showSaveDialog(QWidget *window, const FileDialogRequest &request)
{
    FileDialog dialog(window, QFileDialog::AcceptSave, request);
    return chosenIn(dialog);
}

std::optional<QString> refuseMissingFile(const ChosenFile &file)
{
    if (QFileInfo(file.path).isFile())
        return std::nullopt;
    return QCoreApplication::translate("CommonDialog", "%1\nFile not found.\n"
                                                       "Check the name and try again.")
        .arg(file.path);
}

PrintDialogAnswer showPrintDialog(QWidget *window, QPrinter &printer)
{
    QPrintDialog dialog(&printer, window);
    dialog.setObjectName(dialogName);
    return dialog.exec() == QDialog::Accepted ? PrintDialogAnswer::Print
                                              : PrintDialogAnswer::Cancel;
}

std::optional<QFont> showFontDialog(QWidget *window, const QFont &font)
{
    QFontDialog dialog(font, window);
    dialog.setObjectName(QStringLiteral("fontDialog"));
    nameControls(dialog);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.selectedFont();
}
