#pragma once

#include "tools/CharacterModel.h"

#include <QTableView>

/// A grid of the characters of the view's font, each drawn as large as its cell allows.
class CharacterGrid final : public QTableView
{
    Q_OBJECT

public:
    explicit CharacterGrid(QWidget *parent = nullptr);

Q_SIGNALS:
    /// Another cell has become the current one.
    void currentCellChanged(const QModelIndex &cell);
    /// A cell was double-clicked, or Enter pressed in it.
    void cellActivated(const QModelIndex &cell);

protected:
    /// Enter activates the current cell; a key that types a character goes to that character.
    void keyPressEvent(QKeyEvent *event) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;

private:
    CharacterModel model_;
};
