#include "app/InkIcon.h"

#include <QBuffer>
#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QImageReader>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>

namespace {

QColor inkColor(QIcon::Mode mode)
{
    const QPalette palette = QGuiApplication::palette();
    return palette.color(mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active,
                         QPalette::ButtonText);
}

class InkIconEngine final : public QIconEngine
{
public:
    explicit InkIconEngine(QString file) : file_(std::move(file)) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal scale = painter->device()->devicePixelRatioF();
        painter->drawPixmap(rect, scaledPixmap(rect.size() * scale, mode, state, scale));
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State) override
    {
        const QColor ink = inkColor(mode);
        const QString key = QStringLiteral("%1 %2x%3 %4")
                                .arg(file_)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(ink.name(QColor::HexArgb));
        QPixmap picture;
        if (!QPixmapCache::find(key, &picture)) {
            picture = QPixmap::fromImage(drawn(size, ink));
            QPixmapCache::insert(key, picture);
        }
        return picture;
    }

    [[nodiscard]] QIconEngine *clone() const override { return new InkIconEngine(file_); }

private:
    [[nodiscard]] QImage drawn(const QSize &size, const QColor &ink) const
    {
        QFile file(file_);
        if (!file.open(QIODevice::ReadOnly))
            return {};
        QByteArray svg = file.readAll();
        svg.replace("#000000", ink.name().toLatin1());
        QBuffer buffer(&svg);
        QImageReader reader(&buffer, "svg");
        reader.setScaledSize(size);
        return reader.read();
    }

    QString file_;
};

} // namespace

QIcon inkIcon(const QString &file)
{
    return QIcon(new InkIconEngine(file));
}
