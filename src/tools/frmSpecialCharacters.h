#pragma once

#include <QDialog>
#include <memory>

class QModelIndex;
namespace Ui {
class frmSpecialCharacters;
}
struct SharedState;

/// The dialog that shows all characters of a font, `TransferValue` its name, and collects some of
/// them in `TransferText`, to what that already holds. Cancelled, it empties `TransferText`.
class frmSpecialCharacters final : public QDialog
{
    Q_OBJECT

public:
    frmSpecialCharacters(SharedState &state, QWidget *parent);
    ~frmSpecialCharacters() override;

    void accept() override;
    void reject() override;

protected:
    /// What is selected in txtCharacters stays selected while a cell is chosen that replaces it.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void showFont(const QString &name);
    void showCell(const QModelIndex &cell);
    void collect(const QModelIndex &cell);
    void showCollected();

    SharedState &state_;
    std::unique_ptr<Ui::frmSpecialCharacters> ui_;
};
