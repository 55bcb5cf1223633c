#include "preferences/FontFaceDelegate.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QListView>
#include <QPainter>

namespace {

constexpr double rowHeight = 1.6;  // of the interface font's
constexpr double faceHeight = 0.6; // of the row

bool isTengwar(const QString &font)
{
    return font.contains(u"tengwa", Qt::CaseInsensitive);
}

bool readsAsNames(const QString &font)
{
    return !isTengwar(font) && QFontDatabase::writingSystems(font).contains(QFontDatabase::Latin);
}

QString sampleOf(const QString &font)
{
    if (isTengwar(font))
        return tengwarSample();
    const QList<QFontDatabase::WritingSystem> systems = QFontDatabase::writingSystems(font);
    return QFontDatabase::writingSystemSample(systems.isEmpty() ? QFontDatabase::Symbol
                                                                : systems.first());
}

QFont face(const QString &name, const QRect &row)
{
    QFont font(name);
    font.setPixelSize(qMax(1, qRound(row.height() * faceHeight)));
    return font;
}

} // namespace

void FontFaceDelegate::drawEntries(QComboBox &fonts)
{
    fonts.setItemDelegate(new FontFaceDelegate(&fonts));
    if (auto *list = qobject_cast<QListView *>(fonts.view()))
        list->setUniformItemSizes(true);
}

void FontFaceDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                             const QModelIndex &index) const
{
    const QString name = index.data().toString();
    QStyleOptionViewItem row(option);
    const bool isReadable = readsAsNames(name);
    if (isReadable)
        row.font = face(name, option.rect);
    QStyledItemDelegate::paint(painter, row, index);
    if (isReadable)
        return;
    const QString shownName =
        option.fontMetrics.elidedText(name, Qt::ElideRight, option.rect.width());
    const int gap = option.fontMetrics.height();
    const QRect room =
        option.rect.adjusted(option.fontMetrics.horizontalAdvance(shownName) + gap, 0, -gap / 2, 0);
    painter->save();
    painter->setFont(face(name, option.rect));
    painter->setPen(option.palette.color(
        option.state & QStyle::State_Selected ? QPalette::HighlightedText : QPalette::Text));
    painter->drawText(
        room, Qt::AlignTrailing | Qt::AlignVCenter | Qt::TextSingleLine,
        painter->fontMetrics().elidedText(sampleOf(name), Qt::ElideRight, room.width()));
    painter->restore();
}

QSize FontFaceDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const
{
    return {0, qRound(option.fontMetrics.height() * rowHeight)};
}

QString tengwarSample()
{
    return QStringLiteral("1Rx#6");
}
