#include "modes/frmModes.h"

#include "editor/ApplyFormFonts.h"
#include "editor/SharedState.h"
#include "engine/LoadMode.h"
#include "engine/run/ChooseMode.h"
#include "engine/run/FillModeList.h"
#include "platform/AtomicFile.h"
#include "platform/MessageBox.h"
#include "platform/RunCommand.h"
#include "ui_frmModes.h"

#include <QDir>
#include <QFileInfo>
#include <QShortcut>
#include <cerrno>
#include <filesystem>

namespace {

bool isFile(const QString &name)
{
    return QFileInfo(name).isFile();
}

void removeFile(const QString &name)
{
    std::error_code failure;
    std::filesystem::remove(QFile::encodeName(name).toStdString(), failure);
    if (failure)
        throw RuntimeError(failure == std::errc::permission_denied ? ErrorNumber::PermissionDenied
                                                                   : ErrorNumber::PathFileAccess,
                           name);
}

bool userConfirms(QWidget *dialog, const QString &question, const QString &title)
{
    return showMessage(dialog, {question, title, QMessageBox::Warning,
                                QMessageBox::Yes | QMessageBox::No, QMessageBox::No}) ==
           QMessageBox::Yes;
}

} // namespace

frmModes::frmModes(SharedState &state, std::function<void()> refillModeList, QWidget *parent)
    : QDialog(parent), state_(state), refillModeList_(std::move(refillModeList)),
      ui_(std::make_unique<Ui::frmModes>())
{
    // What an earlier dialog handed over must not count as this one's answer.
    state_.TransferValue.clear();
    ui_->setupUi(this);
    ApplyFormFonts(*this, state_.Settings);

    const auto onClick = [this](QPushButton *button, void (frmModes::*command)()) {
        connect(button, &QPushButton::clicked, this,
                [this, command] { runCommand(this, [this, command] { (this->*command)(); }); });
    };
    onClick(ui_->cmdOK, &frmModes::chooseSelected);
    onClick(ui_->cmdDelete, &frmModes::deleteSelected);
    onClick(ui_->cmdRestore, &frmModes::restoreSelected);
    connect(ui_->cmdTranscribe, &QPushButton::clicked, this, [this] {
        state_.TransferValue = QStringLiteral("Transcribe");
        runCommand(this, [this] { chooseSelected(); });
    });
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmModes::reject);
    connect(ui_->lstModes, &QListWidget::currentRowChanged, this, &frmModes::showComment);
    connect(ui_->lstModes, &QListWidget::itemDoubleClicked, ui_->cmdOK, &QPushButton::click);
    connect(new QShortcut(Qt::Key_F5, this), &QShortcut::activated, this,
            [this] { runCommand(this, [this] { refill(); }); });
    refill();
}

frmModes::~frmModes() = default;

QString frmModes::selectedName() const
{
    const QListWidgetItem *item = ui_->lstModes->currentItem();
    return item != nullptr ? item->text() : QString();
}

QString frmModes::selectedFile() const
{
    return modeFileName(state_.Settings.ModePath, selectedName());
}

void frmModes::refill()
{
    FillModeList(*ui_->lstModes, state_.Settings);
    showComment();
}

void frmModes::showComment()
{
    ui_->lblComment->setText(readModeComment(selectedFile()));
}

void frmModes::chooseSelected()
{
    chooseMode(selectedName(), state_.Settings);
    refillModeList_();
    accept();
}

void frmModes::deleteSelected()
{
    const QString name = selectedName();
    if (!isFile(selectedFile())) {
        showMessage(this, {QStringLiteral("Warning: the mode \"%1\" could not be found!").arg(name),
                           QStringLiteral("Delete"), QMessageBox::Critical});
        return;
    }
    const QString question =
        QStringLiteral("The mode \"%1\" will be permanently removed from your hard drive. "
                       "Do you wish to continue?")
            .arg(name);
    if (!userConfirms(this, question, QStringLiteral("Delete mode")))
        return;
    removeFile(selectedFile());
    const bool wasCurrent = name == state_.Settings.CurrentMode;
    refill();
    if (wasCurrent)
        state_.Settings.CurrentMode.clear();
    // The main window would otherwise go on showing a mode that is gone.
    refillModeList_();
}

void frmModes::restoreSelected()
{
    const QString name = selectedName();
    const QString title = QStringLiteral("Restore mode");
    const QString question = QStringLiteral("Are you sure you wish to restore the %1 mode to its "
                                            "original state? All changes will be permanently lost!")
                                 .arg(name);
    if (!userConfirms(this, question, title))
        return;
    const QDir programFolder(state_.ProgramFolder);
    const QString backup = programFolder.filePath(name + QStringLiteral(".bak"));
    if (!isFile(backup)) {
        showMessage(
            this, {QStringLiteral("'%1.bak' could not be found. Could not restore mode.").arg(name),
                   title, QMessageBox::Warning});
        return;
    }
    // The restored mode goes beside its backup, wherever the modes folder is; restoring is meant to
    // bring back what the program came with, never to write into a folder of the user's.
    writeFile(programFolder.filePath(name + QStringLiteral(".mod")), readFile(backup));
    showMessage(this, {QStringLiteral("Original mode restored!"), QStringLiteral("Mode restored"),
                       QMessageBox::Information});
}
