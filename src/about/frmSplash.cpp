#include "about/frmSplash.h"

#include "platform/MessageBox.h"
#include "ui_frmSplash.h"

#include "Version.h"

#include <QIcon>
#include <QScreen>

namespace {

constexpr QSize pictureSize(480, 280);
constexpr int textHeight = 64; // the foot of the picture that is free for text
constexpr int textMargin = 12;
constexpr int textSize = 13; // in pixels, as the picture is: a large font wouldn't fit
constexpr QColor inkOfPicture(0x17, 0x3f, 0x39); // the picture is light under every theme

} // namespace

frmSplash::frmSplash() : QFrame(nullptr, Qt::SplashScreen)
{
    Ui::frmSplash ui;
    ui.setupUi(this);
    setWindowTitle(programTitle());
    setFixedSize(pictureSize);
    move(screen()->availableGeometry().center() - rect().center());
    ui.picSplash->setGeometry(rect());
    ui.picSplash->setPixmap(
        QIcon(QStringLiteral(":/splash/splash.svg")).pixmap(pictureSize, devicePixelRatioF()));
    ui.lblSplash->setText(QStringLiteral("Version %1.%2\r\n%3")
                              .arg(QUILLON_VERSION_MAJOR)
                              .arg(QUILLON_VERSION_MINOR)
                              .arg(QStringLiteral(QUILLON_COPYRIGHT)));
    ui.lblSplash->setGeometry(0, pictureSize.height() - textHeight, pictureSize.width(),
                              textHeight - textMargin);
    QFont font = ui.lblSplash->font();
    font.setPixelSize(textSize);
    ui.lblSplash->setFont(font);
    QPalette palette = ui.lblSplash->palette();
    palette.setColor(QPalette::WindowText, inkOfPicture);
    ui.lblSplash->setPalette(palette);
}
