#include "Camera.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QSet>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cstdio>

namespace {

const QColor Frame(0x80, 0x80, 0x80);

void waitForPaint(QWidget &window)
{
    window.activateWindow(); // on a bare display no window manager does
    if (!QTest::qWaitForWindowExposed(&window))
        std::fputs("A window was not shown.\n", stderr);
    QCoreApplication::processEvents();
}

/// Where the menu opens: below its entry in the menu bar, or beside that in another menu.
QPoint placeOf(const QMenu &menu)
{
    QAction *entry = menu.menuAction();
    if (const auto *bar = qobject_cast<QMenuBar *>(menu.parentWidget()))
        return bar->mapToGlobal(bar->actionGeometry(entry).bottomLeft());
    auto &around = *qobject_cast<QMenu *>(menu.parentWidget());
    around.setActiveAction(entry);
    return around.mapToGlobal(around.actionGeometry(entry).topRight());
}

/// The open windows without a frame that belong to the window: menus and lists.
QList<QWidget *> popupsOver(const QWidget &window)
{
    QList<QWidget *> popups;
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible() && widget->windowType() == Qt::Popup && widget != &window)
            popups.append(widget);
    }
    return popups;
}

QImage withPopups(QWidget &window)
{
    const QList<QWidget *> popups = popupsOver(window);
    QRect area(window.mapToGlobal(QPoint()), window.size());
    const QPoint corner = area.topLeft();
    for (const QWidget *popup : popups)
        area |= popup->geometry();
    const qreal scale = window.devicePixelRatioF();
    QImage picture(area.size() * scale, QImage::Format_RGB32);
    picture.setDevicePixelRatio(scale);
    picture.fill(Frame);
    QPainter painter(&picture);
    painter.drawPixmap(corner - area.topLeft(), window.grab());
    for (QWidget *popup : popups)
        painter.drawPixmap(popup->pos() - area.topLeft(), popup->grab());
    painter.setPen(Frame);
    painter.drawRect(QRect(QPoint(), area.size() - QSize(1, 1)));
    return picture;
}

bool fitsPalette(const QImage &picture)
{
    constexpr qsizetype MostColours = 256;
    QSet<QRgb> colours;
    for (int y = 0; y < picture.height() && colours.size() <= MostColours; ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
        colours.unite(QSet<QRgb>(line, line + picture.width()));
    }
    return colours.size() <= MostColours;
}

/// The picture in at most 256 colours, by leaving out their last bits, which makes its file small.
QImage inFewColours(QImage picture)
{
    for (quint32 mask = 0xfffefefe; !fitsPalette(picture) && mask != 0xffe0e0e0;
         mask &= mask << 1U) {
        for (int y = 0; y < picture.height(); ++y) {
            auto *line = reinterpret_cast<QRgb *>(picture.scanLine(y));
            std::transform(line, line + picture.width(), line, [mask](QRgb colour) {
                return colour == 0xffffffff ? colour : colour & mask;
            });
        }
    }
    return picture.convertToFormat(QImage::Format_Indexed8, Qt::ThresholdDither | Qt::AvoidDither);
}

void dismiss(QWidget &window)
{
    if (const auto *box = qobject_cast<QMessageBox *>(&window)) {
        QAbstractButton *no = box->button(QMessageBox::No);
        QAbstractButton *cancel = box->button(QMessageBox::Cancel);
        (cancel ? cancel : no ? no : box->buttons().constLast())->click();
    } else if (auto *dialog = qobject_cast<QDialog *>(&window)) {
        dialog->reject();
    } else {
        window.close();
    }
}

} // namespace

void Camera::take(const QString &name, QWidget &window)
{
    waitForPaint(window);
    save(name, withPopups(window));
}

void Camera::takeMenu(const QString &name, QWidget &window, QMenu &menu)
{
    QList<QMenu *> path{&menu};
    while (auto *above = qobject_cast<QMenu *>(path.constFirst()->parentWidget()))
        path.prepend(above);
    for (QMenu *each : std::as_const(path)) {
        each->popup(placeOf(*each));
        QCoreApplication::processEvents();
    }
    take(name, window);
    for (QMenu *each : std::as_const(path))
        each->close();
}

void Camera::takeModal(const QString &name, const std::function<void()> &open,
                       const std::function<void(QWidget &)> &use)
{
    bool wasTaken = false;
    QTimer timer;
    timer.callOnTimeout([&] {
        QWidget *window = QApplication::activeModalWidget();
        if (window == nullptr || !window->isVisible())
            return;
        timer.stop();
        if (use)
            use(*window);
        if (!wasTaken)
            take(name, *window);
        wasTaken = true;
        dismiss(*window);
        timer.start(); // for what that may bring up
    });
    timer.start(0);
    open();
    if (!wasTaken)
        std::fprintf(stderr, "%s did not come up.\n", qPrintable(name));
    isComplete_ = isComplete_ && wasTaken;
}

void Camera::save(const QString &name, const QImage &picture)
{
    const QString path = folder_.filePath(name + QStringLiteral(".png"));
    const QImage stored = colours_ == Colours::Few ? inFewColours(picture) : picture;
    if (stored.save(path, "PNG", 0)) // quality 0 is the smallest file
        return;
    std::fprintf(stderr, "%s could not be written.\n", qPrintable(path));
    isComplete_ = false;
}
