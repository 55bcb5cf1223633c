#pragma once

#include <QDialog>
#include <functional>
#include <memory>

namespace Ui {
class frmModes;
}
struct SharedState;

/// The dialog in which a mode is chosen, described, deleted and restored from its backup. How it
/// was closed is told by `TransferValue`: "Transcribe", or nothing.
class frmModes final : public QDialog
{
    Q_OBJECT

public:
    /// `refillModeList` fills the main window's list of modes anew.
    frmModes(SharedState &state, std::function<void()> refillModeList, QWidget *parent);
    ~frmModes() override;

private:
    [[nodiscard]] QString selectedName() const;
    [[nodiscard]] QString selectedFile() const;
    void refill();
    void showComment();
    void chooseSelected();
    void deleteSelected();
    void restoreSelected();

    SharedState &state_;
    std::function<void()> refillModeList_;
    std::unique_ptr<Ui::frmModes> ui_;
};
