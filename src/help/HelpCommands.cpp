#include "help/HelpCommands.h"

#include "editor/SharedState.h"
#include "platform/MessageBox.h"

#include <QDir>
#include <QFile>

namespace {

/// Nothing if the file can't be used; the user has been told why.
std::optional<HelpBook> readHelpFile(QWidget &window, const QString &path)
{
    const QString name = QDir::toNativeSeparators(path);
    const auto complain = [&window](const QString &text) {
        showMessage(&window, {.text = text, .icon = QMessageBox::Critical});
    };
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        complain(
            QObject::tr("The help file %1 could not be opened: %2").arg(name, file.errorString()));
        return std::nullopt;
    }
    std::optional<HelpBook> book = HelpBook::read(file.readAll());
    if (!book)
        complain(
            QObject::tr("The help file %1 is damaged. Deleting it and installing Quillon again "
                        "brings it back.")
                .arg(name));
    return book;
}

} // namespace

void HelpCommands::showContents()
{
    if (!help_) {
        std::optional<HelpBook> book = readHelpFile(window_, state_.HelpFile);
        if (!book)
            return;
        help_ = std::make_unique<frmHelp>(*std::move(book));
    }
    help_->setWindowState(help_->windowState() & ~Qt::WindowMinimized);
    help_->show();
    help_->raise();
    help_->activateWindow();
}
