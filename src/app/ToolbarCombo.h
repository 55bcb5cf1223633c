#pragma once

#include <QComboBox>

/// A combo box of a toolbar, narrow, with a list as wide as its entries. It announces when the user
/// has finished with it, so that the focus can go back to where it came from, and leaves the wheel
/// alone while it hasn't the focus.
class ToolbarCombo final : public QComboBox
{
    Q_OBJECT

public:
    explicit ToolbarCombo(QWidget *parent = nullptr);

    void showPopup() override;

Q_SIGNALS:
    /// An entry was chosen, the list was closed, or Enter or Esc was pressed. Connect queued: what
    /// the choice does comes first.
    void finished();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
};
