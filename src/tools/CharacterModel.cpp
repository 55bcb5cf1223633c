#include "tools/CharacterModel.h"

#include "engine/CodePage.h"

namespace {

constexpr int FirstCode = 32;
constexpr int Rows = 7;
constexpr int Columns = 32;

} // namespace

int CharacterModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : Rows;
}

int CharacterModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : Columns;
}

QVariant CharacterModel::data(const QModelIndex &index, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return QString(character(index));
    case Qt::AccessibleTextRole:
    case Qt::ToolTipRole:
        return description(index);
    default:
        return {};
    }
}

int CharacterModel::code(const QModelIndex &index)
{
    return FirstCode + Columns * index.row() + index.column();
}

QChar CharacterModel::character(const QModelIndex &index)
{
    return codePageCharacter(uchar(code(index)));
}

QString CharacterModel::description(const QModelIndex &index)
{
    return QStringLiteral("%1 (# %2)").arg(character(index)).arg(code(index));
}

QModelIndex CharacterModel::indexOf(QChar character) const
{
    const std::optional<uchar> byte = codePageByte(character.unicode());
    if (!byte || *byte < FirstCode)
        return {};
    return index((*byte - FirstCode) / Columns, (*byte - FirstCode) % Columns);
}
