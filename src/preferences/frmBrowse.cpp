#include "preferences/frmBrowse.h"

#include "editor/ApplyFormFonts.h"
#include "ui_frmBrowse.h"

#include <QDir>
#include <QFileSystemModel>
#include <utility>

frmBrowse::frmBrowse(const Settings &settings, const QString &startFolder, QWidget *parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmBrowse>()), folders_(new QFileSystemModel(this))
{
    ui_->setupUi(this);
    ApplyFormFonts(*this, settings);

    folders_->setFilter(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden);
    folders_->setOption(QFileSystemModel::DontUseCustomDirectoryIcons);
    folders_->setRootPath(QString());
    ui_->Dir1->setModel(folders_);
    for (int column = 1; column < folders_->columnCount(); ++column)
        ui_->Dir1->hideColumn(column); // sizes and dates say nothing of folders
    fillDrives(startFolder);
    goTo(startFolder);

    connect(ui_->Drive1, &QComboBox::activated, this, &frmBrowse::openDrive);
    connect(ui_->Dir1->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &frmBrowse::showFolder);
    connect(folders_, &QFileSystemModel::directoryLoaded, this, &frmBrowse::showPlace,
            Qt::QueuedConnection);
    // The model sorts what it has loaded some time later.
    connect(folders_, &QFileSystemModel::layoutChanged, this, [this] {
        if (std::exchange(placeMayMove_, false))
            scrollToPlace();
    });
    connect(ui_->cmdOK, &QPushButton::clicked, this, &frmBrowse::confirm);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmBrowse::reject);
    ui_->Dir1->setFocus();
}

frmBrowse::~frmBrowse() = default;

void frmBrowse::fillDrives(const QString &startFolder)
{
    for (const QFileInfo &drive : QDir::drives()) {
        const QString root = drive.absoluteFilePath();
        ui_->Drive1->addItem(QDir::toNativeSeparators(root), root);
        if (startFolder.startsWith(root, Qt::CaseInsensitive))
            ui_->Drive1->setCurrentIndex(ui_->Drive1->count() - 1);
    }
    const bool hasChoice = ui_->Drive1->count() > 1;
    ui_->lblDrive->setVisible(hasChoice);
    ui_->Drive1->setVisible(hasChoice);
}

void frmBrowse::openDrive()
{
    goTo(ui_->Drive1->currentData().toString());
}

void frmBrowse::goTo(const QString &folder)
{
    const QModelIndex index = folders_->index(QDir::cleanPath(QDir(folder).absolutePath()));
    ui_->Dir1->setCurrentIndex(index);
    ui_->Dir1->expand(index);
    ui_->Dir1->scrollTo(index);
    showFolder();
}

void frmBrowse::showPlace(const QString &loadedFolder)
{
    // Folders above the present one move it as they become known; others must not disturb who reads
    // elsewhere in the tree.
    if (!presentFolder().startsWith(loadedFolder))
        return;
    placeMayMove_ = true;
    scrollToPlace();
}

void frmBrowse::scrollToPlace()
{
    ui_->Dir1->scrollTo(ui_->Dir1->currentIndex(), QAbstractItemView::PositionAtCenter);
}

QString frmBrowse::presentFolder() const
{
    return folders_->filePath(ui_->Dir1->currentIndex());
}

void frmBrowse::showFolder()
{
    const QString folder = presentFolder();
    ui_->lblPath->setText(QDir::toNativeSeparators(folder));
    ui_->File1->clear();
    ui_->File1->addItems(QDir(folder, QStringLiteral("*.mod"), QDir::Name | QDir::IgnoreCase,
                              QDir::Files | QDir::CaseSensitive)
                             .entryList());
}

void frmBrowse::confirm()
{
    chosenFolder_ = QDir::toNativeSeparators(presentFolder());
    accept();
}
