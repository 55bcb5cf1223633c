#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class frmBrowse;
}
class QFileSystemModel;
struct Settings;

/// The dialog in which a folder of modes is looked for. It lists the modes of the present folder.
class frmBrowse final : public QDialog
{
    Q_OBJECT

public:
    /// Opens at `startFolder`, which must exist.
    frmBrowse(const Settings &settings, const QString &startFolder, QWidget *parent);
    ~frmBrowse() override;

    /// The chosen folder once accepted, with the platform's separators and none at its end; else
    /// empty.
    [[nodiscard]] const QString &chosenFolder() const { return chosenFolder_; }

private:
    void fillDrives(const QString &startFolder);
    void openDrive();
    void showFolder();
    void showPlace(const QString &loadedFolder);
    void scrollToPlace();
    void confirm();
    void goTo(const QString &folder);

    [[nodiscard]] QString presentFolder() const;

    QString chosenFolder_;
    std::unique_ptr<Ui::frmBrowse> ui_;
    QFileSystemModel *folders_;
    bool placeMayMove_ = false; ///< folders above the present one are yet to be sorted
};
