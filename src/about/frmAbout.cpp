#include "about/frmAbout.h"

#include "about/StartSysInfo.h"
#include "editor/ApplyFormFonts.h"
#include "platform/MessageBox.h"
#include "platform/RunCommand.h"
#include "ui_frmAbout.h"

#include "Version.h"

#include <QIcon>

namespace {

constexpr QSize iconSize(64, 64);
constexpr double titleScale = 1.75; // of the size of other text

} // namespace

frmAbout::frmAbout(const Settings &settings, const RegistryFunctions &registry, QWidget *parent)
    : QDialog(parent)
{
    Ui::frmAbout ui;
    ui.setupUi(this);
    ApplyFormFonts(*this, settings);
    setWindowTitle(QStringLiteral("About ") + programTitle());

    ui.lblTitle->setText(QStringLiteral(QUILLON_PRODUCT_NAME));
    ui.lblVersion->setText(QStringLiteral("Version " QUILLON_VERSION));
    ui.lblDescription->setText(QStringLiteral(QUILLON_COPYRIGHT));
    ui.picIcon->setPixmap(
        QIcon(QStringLiteral(":/icons/quillon.svg")).pixmap(iconSize, devicePixelRatioF()));
    QFont titleFont = ui.lblTitle->font();
    titleFont.setPointSizeF(titleScale * QFontInfo(titleFont).pointSizeF());
    ui.lblTitle->setFont(titleFont);

    connect(ui.cmdOK, &QPushButton::clicked, this, &frmAbout::accept);
    connect(ui.cmdSysInfo, &QPushButton::clicked, this, [this, &registry] {
        runCommand(this, [this, &registry] { StartSysInfo(*this, registry); });
    });
}
