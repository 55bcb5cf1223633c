#include "preferences/frmPreferences.h"

#include "editor/ApplyFormFonts.h"
#include "editor/CharacterCode.h"
#include "editor/SelectAllOnFocus.h"
#include "editor/SettingKeys.h"
#include "editor/SharedState.h"
#include "editor/StandardUnit.h"
#include "editor/StoredSettings.h"
#include "platform/MessageBox.h"
#include "platform/RunCommand.h"
#include "platform/ScreenUnits.h"
#include "platform/SoftHyphenEdit.h"
#include "preferences/FontFaceDelegate.h"
#include "preferences/frmBrowse.h"
#include "ui_frmPreferences.h"

#include <QDir>
#include <QFileInfo>

namespace {

/// The codes of the units, in the order of their list.
constexpr std::array<QStringView, 5> units = {u"mm", u"cm", u"in", u"pt", u"px"};

constexpr QChar defaultUndefined(127);

bool isUsableFolder(const QString &name)
{
    const QFileInfo folder(name);
    return folder.isDir() && folder.isReadable() && folder.isExecutable();
}

/// The name less one separator at its end, "\\" also where the platform has "/"; the root's own
/// name is nothing but one.
QString withoutSeparator(const QString &folder)
{
    const bool endsInOne = folder.endsWith(u'\\') || folder.endsWith(u'/');
    return endsInOne && !QDir(folder).isRoot() ? folder.chopped(1) : folder;
}

void selectText(QComboBox &list, const QString &text)
{
    list.setCurrentIndex(list.findText(text, Qt::MatchFixedString | Qt::MatchCaseSensitive));
}

/// Shows a font's regular style.
void showSample(QLabel &sample, const QString &fontName)
{
    constexpr int sampleSize = 18; // points
    if (!fontName.isEmpty())
        sample.setFont(QFont(fontName, sampleSize, QFont::Normal));
}

/// Takes the chosen font, if one is chosen.
void takeFont(QString &setting, const QComboBox &list)
{
    if (list.currentIndex() >= 0)
        setting = list.currentText();
}

} // namespace

frmPreferences::frmPreferences(SharedState &state, StoredSettings &stored, QStringList fonts,
                               std::function<void()> applySettings, QWidget *parent)
    : QDialog(parent), state_(state), stored_(stored), fonts_(std::move(fonts)),
      applySettings_(std::move(applySettings)), ui_(std::make_unique<Ui::frmPreferences>())
{
    ui_->setupUi(this);
    ApplyFormFonts(*this, state_.Settings);
    ui_->lblTengwarSample->setText(tengwarSample());
    wire();
    fillFonts();
    showSettings();
}

frmPreferences::~frmPreferences() = default;

void frmPreferences::wire()
{
    connect(ui_->cboGenericTextFont, &QComboBox::currentTextChanged, this,
            [this](const QString &font) { showSample(*ui_->lblRomanSample, font); });
    connect(ui_->cboGenericTengwarFont, &QComboBox::currentTextChanged, this,
            [this](const QString &font) { showSample(*ui_->lblTengwarSample, font); });
    connect(ui_->chkFilterList, &QCheckBox::clicked, this, &frmPreferences::filterTengwarFonts);
    connect(ui_->optUndefinedTranscribe, &QRadioButton::toggled, ui_->txtCharNo,
            &QLineEdit::setEnabled);
    connect(ui_->optUndefinedTranscribe, &QRadioButton::clicked, this,
            &frmPreferences::chooseTranscribe);
    connect(ui_->txtCharNo, &QLineEdit::textChanged, this, &frmPreferences::showCharacterCode);
    showSoftHyphens(*ui_->txtCharNo);
    SelectAllOnFocus(*ui_->txtCharNo);
    SelectAllOnFocus(*ui_->txtModeLocation);

    const auto onClick = [this](QPushButton *button, void (frmPreferences::*command)()) {
        connect(button, &QPushButton::clicked, this,
                [this, command] { runCommand(this, [this, command] { (this->*command)(); }); });
    };
    onClick(ui_->cmdBrowseMode, &frmPreferences::browse);
    onClick(ui_->cmdOK, &frmPreferences::confirm);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmPreferences::reject);
}

void frmPreferences::fillFonts()
{
    FontFaceDelegate::drawEntries(*ui_->cboGenericTextFont);
    FontFaceDelegate::drawEntries(*ui_->cboGenericTengwarFont);
    ui_->cboGenericTextFont->addItems(fonts_);
    ui_->cboGenericTengwarFont->addItems(fonts_);
    selectText(*ui_->cboGenericTextFont, state_.Settings.GenericRomanFont);
    selectText(*ui_->cboGenericTengwarFont, state_.Settings.GenericTengwarFont);
}

void frmPreferences::showSettings()
{
    const Settings &settings = state_.Settings;
    showSample(*ui_->lblRomanSample, settings.GenericRomanFont);
    showSample(*ui_->lblTengwarSample, settings.GenericTengwarFont);
    ui_->chkCharAlert->setChecked(settings.UndefinedAlert);
    ui_->chkClearTargetPane->setChecked(settings.ClearTargetPane);
    ui_->txtCharNo->setText(settings.UndefinedText);
    const bool skips = settings.UndefinedText.isEmpty();
    (skips ? ui_->optUndefinedSkip : ui_->optUndefinedTranscribe)->setChecked(true);
    ui_->txtCharNo->setEnabled(!skips);
    const auto unit = std::find(units.begin(), units.end(), settings.StandardUnit);
    ui_->cmbStandardUnit->setCurrentIndex(unit == units.end() ? -1 : int(unit - units.begin()));
    ui_->txtModeLocation->setText(settings.ModePath);
    showCharacterCode();
}

void frmPreferences::filterTengwarFonts()
{
    const bool all = !ui_->chkFilterList->isChecked();
    QComboBox &list = *ui_->cboGenericTengwarFont;
    const QSignalBlocker blocker(list); // the list passes through fonts that nobody chose
    list.clear();
    list.addItems(all ? fonts_ : fonts_.filter(QStringLiteral("tengwa"), Qt::CaseInsensitive));
    selectText(list, state_.Settings.GenericTengwarFont);
    // what isn't listed is not chosen, and stays
    showSample(*ui_->lblTengwarSample, state_.Settings.GenericTengwarFont);
}

void frmPreferences::chooseTranscribe()
{
    if (ui_->txtCharNo->text().isEmpty())
        ui_->txtCharNo->setText(defaultUndefined);
}

void frmPreferences::showCharacterCode()
{
    const QString text = heldText(*ui_->txtCharNo);
    ui_->lblCharNo->setText(
        text.isEmpty() ? QString() : QStringLiteral("(# %1)").arg(characterCode(text.front())));
}

QString frmPreferences::folderToBrowse() const
{
    for (const QString &folder : {ui_->txtModeLocation->text(), state_.Settings.ModePath}) {
        if (QFileInfo(folder).isDir())
            return folder;
    }
    return state_.ProgramFolder;
}

void frmPreferences::browse()
{
    frmBrowse dialog(state_.Settings, folderToBrowse(), this);
    if (dialog.exec() == QDialog::Accepted && !dialog.chosenFolder().isEmpty())
        ui_->txtModeLocation->setText(dialog.chosenFolder());
}

void frmPreferences::confirm()
{
    const QString folder = withoutSeparator(ui_->txtModeLocation->text());
    if (!isUsableFolder(folder)) {
        showMessage(this, {QStringLiteral("The folder %1 does not exist. "
                                          "Please specify a valid folder name.")
                               .arg(folder)});
        ui_->txtModeLocation->setFocus();
        return;
    }
    readControls(folder);
    store();
    applySettings_();
    accept();
}

void frmPreferences::readControls(const QString &modePath)
{
    Settings &settings = state_.Settings;
    settings.ModePath = modePath;
    if (const int unit = ui_->cmbStandardUnit->currentIndex(); unit >= 0) {
        const QStringView code = units.at(size_t(unit));
        settings.StandardUnit = code.toString();
        settings.UnitFactor = twipsPerUnit(code).value_or(twipsPerPixelX(*this));
    }
    takeFont(settings.GenericRomanFont, *ui_->cboGenericTextFont);
    takeFont(settings.GenericTengwarFont, *ui_->cboGenericTengwarFont);
    settings.UndefinedAlert = ui_->chkCharAlert->isChecked();
    settings.UndefinedText =
        ui_->optUndefinedTranscribe->isChecked() ? heldText(*ui_->txtCharNo) : QString();
    settings.ClearTargetPane = ui_->chkClearTargetPane->isChecked();
}

void frmPreferences::store()
{
    const Settings &settings = state_.Settings;
    const auto write = [this](const QString &key, const char16_t *name, const QVariant &value) {
        stored_.write(key, QString::fromUtf16(name), value);
    };
    write(SettingKey::Fonts, u"GenericRomanFont", settings.GenericRomanFont);
    write(SettingKey::Fonts, u"GenericTengwarFont", settings.GenericTengwarFont);
    write(SettingKey::Transcription, u"UndefinedAlert", settings.UndefinedAlert);
    write(SettingKey::Transcription, u"UndefinedTranscribe", settings.UndefinedText);
    write(SettingKey::Transcription, u"ClearTargetPane", settings.ClearTargetPane);
    write(SettingKey::Mode, u"Path", settings.ModePath);
    write(SettingKey::General, u"Unit", settings.StandardUnit);
}
