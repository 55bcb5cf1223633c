#pragma once

#include "editor/Panes.h"
#include "search/ReplaceAll.h"

#include <QDialog>
#include <functional>
#include <memory>

class QLineEdit;
namespace Ui {
class frmFind;
}

/// The modeless dialog that searches the active pane, for roman letters as typed or for what the
/// current mode makes of them, and replaces what it finds. It records no undo state.
///
/// How it opens is told by `TransferValue`, "Find" or "Replace", and by `TransferText`, the text
/// selected in the active pane.
class frmFind final : public QDialog
{
    Q_OBJECT

public:
    /// `isTranscribing` tells whether a transcription runs, whose abort is not to be undone.
    frmFind(SharedState &state, const Panes &panes, std::function<bool()> isTranscribing,
            QWidget *parent);
    ~frmFind() override;

    void showReplaceControls();

    /// Closes the dialog, also by Esc and the window's close button; ends a running replacement.
    void reject() override;

protected:
    /// Esc ends a running replacement first.
    void keyPressEvent(QKeyEvent *event) override;

    /// A key released in a roman box refills the Tengwar box beside it.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void connectControls();
    void takeTransfer();
    void toggleReplaceControls();
    void chooseSearchMode();
    void refill(const QLineEdit &roman, QLineEdit &tengwar);
    void clearAbort();
    [[nodiscard]] QString sought() const;
    [[nodiscard]] FindFlags flags() const;
    [[nodiscard]] QString replacement() const;
    void find();
    void uncover(const RichTextBox &pane);
    void replace();
    void replaceAll();
    void showProgress(qint64 replaced);
    void enableControls();

    SharedState &state_;
    Panes panes_;
    std::function<bool()> isTranscribing_;
    std::unique_ptr<Ui::frmFind> ui_;
    ReplaceAll replaceAll_;
    bool hasFound_ = false; ///< since then Replace can be pressed
};
