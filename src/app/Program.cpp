#include "app/Program.h"

#include "about/frmAbout.h"
#include "about/frmSplash.h"
#include "app/DocumentCommands.h"
#include "app/Form1.h"
#include "app/Subjects.h"
#include "app/ToolCommands.h"
#include "app/TranscriptionCommands.h"
#include "app/WindowCommands.h"
#include "app/WindowPlacement.h"
#include "app/WritingCommands.h"
#include "editor/DefaultFonts.h"
#include "editor/SettingKeys.h"
#include "editor/StandardUnit.h"
#include "platform/FontList.h"
#include "platform/RunCommand.h"
#include "platform/SymbolFonts.h"

#include "Version.h"

#include <QGuiApplication>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The arrow with the hourglass, for as long as it lives.
class BusyPointer
{
public:
    BusyPointer() { QGuiApplication::setOverrideCursor(Qt::BusyCursor); }
    ~BusyPointer() { QGuiApplication::restoreOverrideCursor(); }
    Q_DISABLE_COPY_MOVE(BusyPointer)
};

QString orElse(const QString &text, const QString &other)
{
    return text.isEmpty() ? other : text;
}

} // namespace

Program::Program(RegistryFunctions &registry, const QString &programFolder, QString fontFolder)
    : registry_(registry), stored_(registry), fontFolder_(std::move(fontFolder))
{
    state_.ProgramFolder = programFolder;
}

Program::~Program() = default;

bool Program::Main()
{
    return runCommand(nullptr, [this] { start(); });
}

void Program::start()
{
    const BusyPointer pointer;
    frmSplash splash;
    splash.show();
    QCoreApplication::processEvents();

    readSettings();
    loadForm();
    restoreWindow(*form_, stored_);
    state_.Settings.EditorPath =
        orElse(stored_.text(SettingKey::Mode, QStringLiteral("EditorPath")),
               state_.ProgramFolder + QStringLiteral("/ModeSmith.exe"));
    stored_.write(SettingKey::Root, QStringLiteral("Version"), QStringLiteral(QUILLON_VERSION));
    form_->show();
}

void Program::readSettings()
{
    Settings &settings = state_.Settings;
    settings.GenericRomanFont = stored_.text(SettingKey::Fonts, QStringLiteral("GenericRomanFont"));
    settings.GenericTengwarFont =
        stored_.text(SettingKey::Fonts, QStringLiteral("GenericTengwarFont"));
    settings.CurrentMode = stored_.text(SettingKey::Mode, QStringLiteral("CurrentMode"));
    settings.ModePath = orElse(stored_.text(SettingKey::Mode, QStringLiteral("Path")),
                               state_.ProgramFolder + QStringLiteral("/Modes"));
    state_.HelpFile = state_.ProgramFolder + QStringLiteral("/Quillon.hlp");

    const QString &transcription = SettingKey::Transcription;
    settings.UndefinedAlert = stored_.flag(transcription, QStringLiteral("UndefinedAlert"));
    settings.UndefinedText = stored_.text(transcription, QStringLiteral("UndefinedTranscribe"));
    settings.ClearTargetPane = stored_.flag(transcription, QStringLiteral("ClearTargetPane"));

    // a stored "px" lasts only for the run in which it is chosen
    settings.StandardUnit = stored_.text(SettingKey::General, QStringLiteral("Unit")).left(2);
    if (!twipsPerUnit(settings.StandardUnit))
        settings.StandardUnit = QStringLiteral("mm");
    settings.UnitFactor = *twipsPerUnit(settings.StandardUnit);

    const QStringList ownFonts = registerFonts(fontFolder_);
    showCodePageInSymbolFonts();
    fonts_ = installedFonts(ownFonts);
    settings.GenericRomanFont = orElse(settings.GenericRomanFont, ChooseDefaultTextFont(fonts_));
    settings.GenericTengwarFont =
        orElse(settings.GenericTengwarFont, ChooseDefaultTengwarFont(fonts_));
}

void Program::loadForm()
{
    form_ = std::make_unique<Form1>(state_);
    connectWindowCommands(*form_, state_);
    connect(form_.get(), &Form1::unloaded, this, &Program::unload);
    subjects_ = std::make_unique<Subjects>(*form_, state_, stored_);
    connectDocumentCommands(*form_, state_, *subjects_);
    connectWritingCommands(*form_, state_, *subjects_);
    connectTranscriptionCommands(*form_, state_, *subjects_);
    connectToolCommands(*form_, state_, stored_, fonts_, *subjects_);
    form_->commands().connect({"mnuHAbout"_L1},
                              [this] { frmAbout(state_.Settings, registry_, form_.get()).exec(); });
    form_->Load({subjects_->run, subjects_->documents, subjects_->journal, subjects_->indicator},
                fonts_);
}

void Program::unload()
{
    const Settings &settings = state_.Settings;
    stored_.write(SettingKey::Mode, QStringLiteral("CurrentMode"), settings.CurrentMode);
    storeWindow(*form_, stored_);
    stored_.write(SettingKey::Fonts, QStringLiteral("GenericRomanFont"), settings.GenericRomanFont);
    stored_.write(SettingKey::Fonts, QStringLiteral("GenericTengwarFont"),
                  settings.GenericTengwarFont);
    if (subjects_->modeEditor.isLocated())
        stored_.write(SettingKey::Mode, QStringLiteral("EditorPath"), settings.EditorPath);
    runCommand(form_.get(), [this] { subjects_->journal.ClearUndoFiles(QStringLiteral("*")); });
    QCoreApplication::exit();
}
