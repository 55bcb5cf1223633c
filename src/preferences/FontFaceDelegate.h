#pragma once

#include <QStyledItemDelegate>

class QComboBox;

/// Draws the names of fonts in their own face. A font whose letters don't read as names, of symbols
/// or Tengwar, has a sample beside its name instead.
///
/// Only rows that are seen are drawn, and all rows are equally high, so that a list of a thousand
/// fonts loads no more of them than it shows.
class FontFaceDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// Draws the entries of the list, which owns the delegate, and keeps them from being measured.
    static void drawEntries(QComboBox &fonts);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option,
                                 const QModelIndex &index) const override;

private:
    using QStyledItemDelegate::QStyledItemDelegate;
};

/// A word in the letters of a Tengwar font.
[[nodiscard]] QString tengwarSample();
