#include "preferences/frmPreferences.h"

#include "editor/SettingKeys.h"
#include "editor/SharedState.h"
#include "platform/ScreenUnits.h"
#include "support/MessageBoxes.h"
#include "support/ModalDialog.h"
#include "support/RegistryFolder.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <unistd.h>

namespace {

const QStringList Fonts = {QStringLiteral("DejaVu Sans"), QStringLiteral("Old TENGWAR"),
                           QStringLiteral("Short"), QStringLiteral("Tengwar Quenya"),
                           QStringLiteral("A Tengwa Font")};

/// The dialog over settings and a registry of its own, with a folder of modes that exists.
struct Preferences
{
    SharedState state;
    RegistryFolder registry;
    QTemporaryDir modes;
    QStringList fonts = Fonts;
    int applied = 0;
    std::unique_ptr<frmPreferences> dialog;

    Preferences()
    {
        state.Settings = {.GenericRomanFont = QStringLiteral("Short"),
                          .GenericTengwarFont = QStringLiteral("Tengwar Quenya"),
                          .CurrentMode = {},
                          .ModePath = modes.path(),
                          .UndefinedAlert = true,
                          .UndefinedText = QStringLiteral("¿x"),
                          .ClearTargetPane = false,
                          .StandardUnit = QStringLiteral("cm"),
                          .UnitFactor = 567,
                          .EditorPath = {}};
    }

    void open()
    {
        dialog = std::make_unique<frmPreferences>(
            state, registry.settings, fonts, [this] { ++applied; }, nullptr);
        dialog->show();
        if (!QTest::qWaitForWindowActive(dialog.get()))
            qFatal("The window did not become active");
    }

    template<typename Control> [[nodiscard]] Control &find(const char *name) const
    {
        return *dialog->findChild<Control *>(QLatin1StringView(name));
    }
    [[nodiscard]] QComboBox &list(const char *name) const { return find<QComboBox>(name); }
    [[nodiscard]] QLineEdit &box(const char *name) const { return find<QLineEdit>(name); }

    void click(const char *button) const
    {
        auto &control = find<QAbstractButton>(button);
        const int middle = control.height() / 2;
        QTest::mouseClick(&control, Qt::LeftButton, {}, QPoint(middle, middle));
    }

    [[nodiscard]] QString stored(const QString &key, const char *name) const
    {
        return registry.settings.text(key, QLatin1StringView(name));
    }
};

/// A registry that keeps nothing but the names of the values written to it, in order.
class WritingOrder final : public RegistryStore
{
public:
    QStringList names;

    [[nodiscard]] bool contains(const RegistryKey &) const override { return true; }
    [[nodiscard]] std::optional<RegistryValue> value(const RegistryKey &,
                                                     const QString &) const override
    {
        return std::nullopt;
    }
    bool createKey(const RegistryKey &) override { return true; }
    bool setValue(const RegistryKey &, const QString &name, const RegistryValue &) override
    {
        names += name;
        return true;
    }
};

/// Makes the process one of a user without rights while it lasts, where it may do so.
class OrdinaryUser
{
public:
    OrdinaryUser() { become(Nobody); }
    ~OrdinaryUser() { become(0); }
    Q_DISABLE_COPY_MOVE(OrdinaryUser)

private:
    void become(uid_t user)
    {
        if (isRoot_ && setresuid(user, user, 0) != 0)
            qFatal("the user cannot be changed");
    }

    static constexpr uid_t Nobody = 65534;
    bool isRoot_ = geteuid() == 0;
};

} // namespace

class tst_frmPreferences : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsTheSettings()
    {
        Preferences preferences;
        preferences.open();
        QCOMPARE(preferences.dialog->windowTitle(), QStringLiteral("Preferences"));
        QCOMPARE(preferences.list("cboGenericTextFont").count(), Fonts.size());
        QCOMPARE(preferences.list("cboGenericTextFont").itemText(4), Fonts.last());
        QCOMPARE(preferences.list("cboGenericTextFont").currentText(), QStringLiteral("Short"));
        QCOMPARE(preferences.list("cboGenericTengwarFont").currentText(),
                 QStringLiteral("Tengwar Quenya"));
        QCOMPARE(preferences.find<QLabel>("lblRomanSample").text(), QStringLiteral("Roman"));
        QCOMPARE(preferences.find<QLabel>("lblRomanSample").font().family(),
                 QStringLiteral("Short"));
        QVERIFY(preferences.find<QCheckBox>("chkCharAlert").isChecked());
        QVERIFY(!preferences.find<QCheckBox>("chkClearTargetPane").isChecked());
        QVERIFY(preferences.find<QRadioButton>("optUndefinedTranscribe").isChecked());
        QVERIFY(preferences.box("txtCharNo").isEnabled());
        QCOMPARE(preferences.box("txtCharNo").text(), QStringLiteral("¿x"));
        QCOMPARE(preferences.find<QLabel>("lblCharNo").text(), QStringLiteral("(# 191)"));
        QCOMPARE(preferences.list("cmbStandardUnit").currentText(), QStringLiteral("Centimeters"));
        QCOMPARE(preferences.box("txtModeLocation").text(), preferences.modes.path());
    }

    void okStoresEverything()
    {
        Preferences preferences;
        QVERIFY(QDir(preferences.modes.path()).mkdir(QStringLiteral("more")));
        const QString folder = preferences.modes.filePath(QStringLiteral("more"));
        preferences.open();
        preferences.list("cboGenericTextFont").setFocus();
        QTest::keyClick(&preferences.list("cboGenericTextFont"), Qt::Key_Home);
        QTest::keyClick(&preferences.list("cboGenericTengwarFont"), Qt::Key_End);
        preferences.box("txtModeLocation").setText(folder + QDir::separator());
        QTest::keyClick(&preferences.list("cmbStandardUnit"), Qt::Key_Down);
        preferences.click("optUndefinedSkip");
        preferences.click("chkCharAlert");
        preferences.click("chkClearTargetPane");
        QTest::keyClick(preferences.dialog.get(), Qt::Key_Return);
        QVERIFY(!preferences.dialog->isVisible());
        QCOMPARE(preferences.applied, 1);

        const Settings &settings = preferences.state.Settings;
        QCOMPARE(settings.GenericRomanFont, QStringLiteral("DejaVu Sans"));
        QCOMPARE(settings.GenericTengwarFont, QStringLiteral("A Tengwa Font"));
        QCOMPARE(settings.ModePath, folder);
        QCOMPARE(settings.StandardUnit, QStringLiteral("in"));
        QCOMPARE(settings.UnitFactor, 1440);
        QCOMPARE(settings.UndefinedText, QString());
        QVERIFY(!settings.UndefinedAlert);
        QVERIFY(settings.ClearTargetPane);

        QCOMPARE(preferences.stored(SettingKey::Fonts, "GenericRomanFont"),
                 QStringLiteral("DejaVu Sans"));
        QCOMPARE(preferences.stored(SettingKey::Fonts, "GenericTengwarFont"),
                 QStringLiteral("A Tengwa Font"));
        QCOMPARE(preferences.stored(SettingKey::Transcription, "UndefinedAlert"),
                 QStringLiteral("False"));
        QCOMPARE(preferences.stored(SettingKey::Transcription, "UndefinedTranscribe"), QString());
        QCOMPARE(preferences.stored(SettingKey::Transcription, "ClearTargetPane"),
                 QStringLiteral("True"));
        QCOMPARE(preferences.stored(SettingKey::Mode, "Path"), folder);
        QCOMPARE(preferences.stored(SettingKey::General, "Unit"), QStringLiteral("in"));
    }

    void okWritesInOrder()
    {
        Preferences preferences;
        WritingOrder order;
        RegistryFunctions functions(order);
        StoredSettings settings(functions);
        QStringList namesWhenApplied;
        frmPreferences dialog(
            preferences.state, settings, Fonts, [&] { namesWhenApplied = order.names; }, nullptr);
        dialog.findChild<QPushButton *>(QStringLiteral("cmdOK"))->click();
        QCOMPARE(order.names.join(u' '),
                 QStringLiteral("GenericRomanFont GenericTengwarFont UndefinedAlert "
                                "UndefinedTranscribe ClearTargetPane Path Unit"));
        QCOMPARE(namesWhenApplied, order.names);
    }

    void units_data()
    {
        QTest::addColumn<int>("entry");
        QTest::addColumn<QString>("unit");
        QTest::addColumn<double>("factor"); // 0: the screen's
        QTest::newRow("Millimeters") << 0 << QStringLiteral("mm") << 56.7;
        QTest::newRow("Centimeters") << 1 << QStringLiteral("cm") << 567.0;
        QTest::newRow("Inches") << 2 << QStringLiteral("in") << 1440.0;
        QTest::newRow("Points") << 3 << QStringLiteral("pt") << 20.0;
        QTest::newRow("Pixels") << 4 << QStringLiteral("px") << 0.0;
        QTest::newRow("none") << -1 << QStringLiteral("ell") << 7.0;
    }

    void units()
    {
        QFETCH(int, entry);
        QFETCH(double, factor);
        Preferences preferences;
        preferences.state.Settings.StandardUnit = QStringLiteral("ell");
        preferences.state.Settings.UnitFactor = 7;
        preferences.open();
        QCOMPARE(preferences.list("cmbStandardUnit").currentIndex(), -1);
        preferences.list("cmbStandardUnit").setCurrentIndex(entry);
        preferences.click("cmdOK");
        QTEST(preferences.state.Settings.StandardUnit, "unit");
        QCOMPARE(preferences.state.Settings.UnitFactor,
                 factor > 0 ? factor : twipsPerPixelX(*preferences.dialog));
    }

    void aFontThatIsGoneStaysChosen()
    {
        Preferences preferences;
        preferences.state.Settings.GenericRomanFont = QStringLiteral("Gone");
        preferences.state.Settings.GenericTengwarFont = QStringLiteral("tengwar quenya");
        preferences.open();
        QCOMPARE(preferences.list("cboGenericTextFont").currentIndex(), -1);
        QCOMPARE(preferences.list("cboGenericTengwarFont").currentIndex(), -1);
        preferences.click("cmdOK");
        QCOMPARE(preferences.state.Settings.GenericRomanFont, QStringLiteral("Gone"));
        QCOMPARE(preferences.state.Settings.GenericTengwarFont, QStringLiteral("tengwar quenya"));
        QCOMPARE(preferences.stored(SettingKey::Fonts, "GenericRomanFont"), QStringLiteral("Gone"));
    }

    void filter()
    {
        Preferences preferences;
        preferences.open();
        QComboBox &fonts = preferences.list("cboGenericTengwarFont");
        const auto entries = [&fonts] {
            QStringList names;
            for (int i = 0; i < fonts.count(); ++i)
                names += fonts.itemText(i);
            return names;
        };
        preferences.click("chkFilterList");
        QCOMPARE(entries(), QStringList({Fonts[1], Fonts[3], Fonts[4]}));
        QCOMPARE(fonts.currentText(), QStringLiteral("Tengwar Quenya"));
        preferences.click("chkFilterList");
        QCOMPARE(entries(), Fonts);
        QCOMPARE(fonts.currentText(), QStringLiteral("Tengwar Quenya"));
    }

    void filterWithoutAnyTengwarFont()
    {
        Preferences preferences;
        preferences.fonts = {QStringLiteral("DejaVu Sans"), QStringLiteral("Teng"),
                             QStringLiteral("Teng Wa")};
        preferences.state.Settings.GenericTengwarFont = QStringLiteral("Teng");
        preferences.open();
        preferences.click("chkFilterList");
        QCOMPARE(preferences.list("cboGenericTengwarFont").count(), 0);
        preferences.click("cmdOK");
        QVERIFY(!preferences.dialog->isVisible());
        QCOMPARE(preferences.state.Settings.GenericTengwarFont, QStringLiteral("Teng"));
    }

    void filterForgetsAChoice()
    {
        Preferences preferences;
        preferences.open();
        QTest::keyClick(&preferences.list("cboGenericTengwarFont"), Qt::Key_Up);
        auto &sample = preferences.find<QLabel>("lblTengwarSample");
        QCOMPARE(sample.font().family(), QStringLiteral("Short"));
        preferences.click("chkFilterList");
        QCOMPARE(preferences.list("cboGenericTengwarFont").currentText(),
                 QStringLiteral("Tengwar Quenya"));
        QCOMPARE(sample.font().family(), QStringLiteral("Tengwar Quenya"));
    }

    void filterThatLeavesTheFontOut()
    {
        Preferences preferences;
        preferences.state.Settings.GenericTengwarFont = QStringLiteral("Short");
        preferences.open();
        preferences.click("chkFilterList");
        QCOMPARE(preferences.list("cboGenericTengwarFont").currentIndex(), -1);
        // The sample shows what stays, not an entry that nobody chose.
        QCOMPARE(preferences.find<QLabel>("lblTengwarSample").font().family(),
                 QStringLiteral("Short"));
        preferences.click("cmdOK");
        QCOMPARE(preferences.state.Settings.GenericTengwarFont, QStringLiteral("Short"));
    }

    void samplesAreRegular()
    {
        Preferences preferences;
        preferences.open();
        auto &sample = preferences.find<QLabel>("lblTengwarSample");
        QFont fancy = sample.font();
        fancy.setBold(true);
        fancy.setItalic(true);
        fancy.setUnderline(true);
        fancy.setStrikeOut(true);
        sample.setFont(fancy);
        QTest::keyClick(&preferences.list("cboGenericTengwarFont"), Qt::Key_Up);
        QCOMPARE(sample.font().family(), QStringLiteral("Short"));
        QCOMPARE(sample.font().weight(), QFont::Normal);
        QVERIFY(!sample.font().italic() && !sample.font().underline() &&
                !sample.font().strikeOut());
        QVERIFY(!sample.text().isEmpty());
    }

    void undefinedCharacter()
    {
        Preferences preferences;
        preferences.state.Settings.UndefinedText.clear();
        preferences.open();
        QLineEdit &text = preferences.box("txtCharNo");
        const auto &code = preferences.find<QLabel>("lblCharNo");
        QVERIFY(preferences.find<QRadioButton>("optUndefinedSkip").isChecked());
        QVERIFY(!text.isEnabled());
        QCOMPARE(code.text(), QString());
        preferences.click("optUndefinedTranscribe");
        QVERIFY(text.isEnabled());
        QCOMPARE(text.text(), QString(QChar(127)));
        QCOMPARE(code.text(), QStringLiteral("(# 127)"));
        text.setFocus();
        QTRY_COMPARE(text.selectedText(), QString(QChar(127)));
        QTest::keyClicks(&text, QStringLiteral("?!"));
        QCOMPARE(code.text(), QStringLiteral("(# 63)"));
        preferences.click("optUndefinedSkip");
        QVERIFY(!text.isEnabled());
        preferences.click("optUndefinedTranscribe");
        QCOMPARE(text.text(), QStringLiteral("?!"));
        text.setText(QStringLiteral("…"));
        QCOMPARE(code.text(), QStringLiteral("(# 133)"));
        text.clear();
        QCOMPARE(code.text(), QString());
        text.setText(QStringLiteral("?!"));
        preferences.click("cmdOK");
        QCOMPARE(preferences.state.Settings.UndefinedText, QStringLiteral("?!"));
    }

    void refusedFolders_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("missing") << QStringLiteral("missing");
        QTest::newRow("file") << QStringLiteral("file");
        QTest::newRow("unreadable") << QStringLiteral("unreadable");
    }

    void refusedFolders()
    {
        QFETCH(QString, name);
        Preferences preferences;
        const QDir folder(preferences.modes.path());
        QFile file(folder.filePath(QStringLiteral("file")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(folder.mkdir(QStringLiteral("unreadable")));
        QVERIFY(QFile::setPermissions(folder.filePath(QStringLiteral("unreadable")), {}));
        QVERIFY(QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::WriteOwner |
                                                         QFile::ExeOwner | QFile::ReadOther |
                                                         QFile::ExeOther));
        const MessageBoxes boxes;
        preferences.open();
        preferences.click("chkClearTargetPane");
        preferences.box("txtModeLocation").setText(folder.filePath(name));
        {
            const OrdinaryUser user;
            preferences.click("cmdOK");
        }
        QCOMPARE(boxes.seen().size(), size_t(1));
        QCOMPARE(boxes.seen().front().text,
                 QStringLiteral("The folder %1 does not exist. Please specify a valid folder name.")
                     .arg(folder.filePath(name)));
        QCOMPARE(boxes.seen().front().buttons, QMessageBox::Ok);
        QVERIFY(preferences.dialog->isVisible());
        QCOMPARE(preferences.dialog->focusWidget(), &preferences.box("txtModeLocation"));
        QCOMPARE(preferences.state.Settings.ModePath, preferences.modes.path());
        QVERIFY(!preferences.state.Settings.ClearTargetPane);
        QCOMPARE(preferences.stored(SettingKey::General, "Unit"), QString());
        QCOMPARE(preferences.applied, 0);
    }

    void separators_data()
    {
        QTest::addColumn<QString>("entered");
        QTest::addColumn<QString>("kept");
        const QString folder = QDir::tempPath();
        QTest::newRow("none") << folder << folder;
        QTest::newRow("one") << folder + u'/' << folder;
        QTest::newRow("two") << folder + QStringLiteral("//") << folder + u'/';
        QTest::newRow("that of other platforms") << folder + u'\\' << folder;
        QTest::newRow("root") << QDir::rootPath() << QDir::rootPath();
    }

    void separators()
    {
        QFETCH(QString, entered);
        Preferences preferences;
        preferences.open();
        preferences.box("txtModeLocation").setText(entered);
        preferences.click("cmdOK");
        QTEST(preferences.state.Settings.ModePath, "kept");
    }

    void anEmptyFolderIsRefused()
    {
        Preferences preferences;
        const MessageBoxes boxes;
        preferences.open();
        preferences.box("txtModeLocation").clear();
        preferences.click("cmdOK");
        QCOMPARE(boxes.seen().size(), size_t(1));
        QVERIFY(preferences.dialog->isVisible());
    }

    void browse_data()
    {
        QTest::addColumn<QString>("entered");
        QTest::addColumn<QString>("modePath");
        QTest::addColumn<QString>("start");
        const QString folder = QDir::tempPath();
        const QString missing = QStringLiteral("/missing");
        QTest::newRow("the folder entered") << folder << QDir::rootPath() << folder;
        QTest::newRow("the folder of the settings") << missing << folder << folder;
        QTest::newRow("the program's folder")
            << missing << missing << QStringLiteral(QUILLON_SOURCE_FOLDER);
    }

    void browse()
    {
        QFETCH(QString, entered);
        QFETCH(QString, modePath);
        QFETCH(QString, start);
        Preferences preferences;
        preferences.state.Settings.ModePath = modePath;
        preferences.state.ProgramFolder = QStringLiteral(QUILLON_SOURCE_FOLDER);
        preferences.open();
        preferences.box("txtModeLocation").setText(entered);
        Qt::Key key = Qt::Key_Escape;
        const ModalDialog user("frmBrowse", [&](QDialog &dialog) {
            QCOMPARE(dialog.findChild<QLabel *>(QStringLiteral("lblPath"))->text(), start);
            QTest::keyClick(&dialog, key);
        });
        preferences.click("cmdBrowseMode");
        QCOMPARE(preferences.box("txtModeLocation").text(), entered);
        key = Qt::Key_Return;
        preferences.click("cmdBrowseMode");
        QCOMPARE(preferences.box("txtModeLocation").text(), start);
        QCOMPARE(user.uses(), 2);
    }

    void cancelled()
    {
        Preferences preferences;
        preferences.open();
        preferences.click("chkClearTargetPane");
        QTest::keyClick(preferences.dialog.get(), Qt::Key_Escape);
        QVERIFY(!preferences.dialog->isVisible());
        QVERIFY(!preferences.state.Settings.ClearTargetPane);
        QCOMPARE(preferences.stored(SettingKey::General, "Unit"), QString());
        QCOMPARE(preferences.applied, 0);
    }

    void everyFieldHasALabel()
    {
        Preferences preferences;
        preferences.open();
        int labelled = 0;
        for (const QLabel *label : preferences.dialog->findChildren<QLabel *>()) {
            if (label->buddy() != nullptr) {
                ++labelled;
                QVERIFY(!label->buddy()->accessibleName().isEmpty());
            }
        }
        QCOMPARE(labelled, 4);
    }
};

QTEST_MAIN(tst_frmPreferences)
#include "tst_frmpreferences.moc"
