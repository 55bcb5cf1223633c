#include "app/frmSplash.h"

#include "Version.h"
#include "ui_frmSplash.h"

frmSplash::frmSplash() : QFrame(nullptr, Qt::SplashScreen)
{
    Ui::frmSplash ui;
    ui.setupUi(this);
    ui.lblSplash->setText(QStringLiteral("Version %1.%2\r\n%3")
                              .arg(QUILLON_VERSION_MAJOR)
                              .arg(QUILLON_VERSION_MINOR)
                              .arg(QStringLiteral(QUILLON_COPYRIGHT)));
}
