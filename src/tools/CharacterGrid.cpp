#include "tools/CharacterGrid.h"

#include "tools/SignPainter.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>

namespace {

constexpr int RowHeight = 52; // leaves room for marks above and below a letter

class SignDelegate final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override
    {
        const bool isSelected = option.state.testFlag(QStyle::State_Selected);
        if (isSelected)
            painter->fillRect(option.rect, option.palette.highlight());
        const QBrush &ink = isSelected ? option.palette.highlightedText() : option.palette.text();
        drawSign(*painter, option.rect.adjusted(2, 2, -2, -2), option.font,
                 CharacterModel::character(index), ink.color());
    }
};

} // namespace

CharacterGrid::CharacterGrid(QWidget *parent) : QTableView(parent)
{
    setModel(&model_);
    setItemDelegate(new SignDelegate(this));
    setSelectionMode(QAbstractItemView::SingleSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabKeyNavigation(false);
    horizontalHeader()->hide();
    horizontalHeader()->setMinimumSectionSize(1);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(RowHeight);
    setFixedHeight(RowHeight * model_.rowCount() + 2 * frameWidth());
    connect(this, &QTableView::doubleClicked, this, &CharacterGrid::cellActivated);
}

void CharacterGrid::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Q_EMIT cellActivated(currentIndex());
        return;
    }
    const QString typed = event->text();
    const bool isCharacter = typed.size() == 1 && typed.front() >= u' ' && typed.front() != u'\x7F';
    const QModelIndex cell = isCharacter ? model_.indexOf(typed.front()) : QModelIndex();
    if (cell.isValid())
        setCurrentIndex(cell);
    else
        QTableView::keyPressEvent(event);
}

void CharacterGrid::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QTableView::currentChanged(current, previous);
    if (current.isValid())
        Q_EMIT currentCellChanged(current);
}
