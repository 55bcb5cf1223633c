#pragma once

#include <QAbstractTableModel>

/// The 224 characters of a single-byte font, codes 32 to 255, in 7 rows of 32.
class CharacterModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;

    /// The character itself; for assistive technology and as a tool tip, its description.
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;

    [[nodiscard]] static int code(const QModelIndex &index);
    [[nodiscard]] static QChar character(const QModelIndex &index);

    /// The character and its code, such as "A (# 65)".
    [[nodiscard]] static QString description(const QModelIndex &index);

    /// The cell of a character; an invalid one for a character that has none.
    [[nodiscard]] QModelIndex indexOf(QChar character) const;
};
