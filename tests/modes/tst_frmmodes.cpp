#include "editor/SharedState.h"
#include "modes/frmModes.h"
#include "support/MessageBoxes.h"
#include "support/ModeFolder.h"

#include <QDir>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

/// The dialog as its user meets it: a modes folder, a program folder with backups, real clicks.
class tst_frmModes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void opensWithTheCurrentMode();
    void emptiesTransferValue();
    void showsComments();
    void okChoosesTheMode();
    void doubleClickIsOk();
    void transcribeTellsSo();
    void cancelChangesNothing_data();
    void cancelChangesNothing();
    void vanishedModeIsNotChosen();
    void deleteAsksFirst();
    void deleteRemovesTheFile();
    void deleteOfTheLastMode();
    void deleteOfAMissingFile();
    void deleteThatFails();
    void restoreCopiesIntoTheProgramFolder();
    void restoreAsksFirst();
    void restoreWithoutBackup();
    void f5RefillsTheList();
    void fontsAndNames();

private:
    template<typename Control> [[nodiscard]] Control *find(const char *name) const
    {
        auto *control = dialog_->findChild<Control *>(QLatin1String(name));
        if (control == nullptr)
            qFatal("there is no %s", name);
        return control;
    }
    void click(const char *button) { QTest::mouseClick(find<QPushButton>(button), Qt::LeftButton); }
    void select(const QString &name)
    {
        auto *list = find<QListWidget>("lstModes");
        list->setCurrentItem(list->findItems(name, Qt::MatchExactly).value(0));
    }
    void open()
    {
        dialog_ = std::make_unique<frmModes>(
            *state_, [this] { ++refills_; }, nullptr);
        dialog_->show();
        QVERIFY(QTest::qWaitForWindowExposed(dialog_.get()));
    }
    [[nodiscard]] QString comment() const { return find<QLabel>("lblComment")->text(); }

    std::unique_ptr<ModeFolder> modes_;
    std::unique_ptr<ModeFolder> program_;
    std::unique_ptr<SharedState> state_;
    std::unique_ptr<frmModes> dialog_;
    int refills_ = 0;
};

void tst_frmModes::init()
{
    modes_ = std::make_unique<ModeFolder>();
    program_ = std::make_unique<ModeFolder>();
    state_ = std::make_unique<SharedState>();
    modes_->add(u"One"_qs, ModeBytes("The first one  \t0").bytes());
    modes_->add(u"Two"_qs, ModeBytes("The <b>second</b> & last\t0").bytes());
    state_->Settings.ModePath = modes_->path();
    state_->Settings.CurrentMode = u"Two"_qs;
    state_->Settings.GenericRomanFont = u"Some Font"_qs;
    state_->ProgramFolder = program_->path();
    refills_ = 0;
    open();
}

void tst_frmModes::cleanup()
{
    dialog_.reset();
}

void tst_frmModes::opensWithTheCurrentMode()
{
    auto *list = find<QListWidget>("lstModes");
    QCOMPARE(list->count(), 2);
    QCOMPARE(list->currentItem()->text(), u"Two"_qs);
    QCOMPARE(comment(), u"The <b>second</b> & last"_qs);
    QCOMPARE(find<QLabel>("lblComment")->textFormat(), Qt::PlainText);
}

void tst_frmModes::emptiesTransferValue()
{
    state_->TransferValue = u"Transcribe"_qs;
    open();
    QVERIFY(!state_->TransferValue.isValid());
    click("cmdCancel");
    QVERIFY(!state_->TransferValue.isValid());
}

void tst_frmModes::showsComments()
{
    modes_->write(u"NoTab.mod"_qs, "no TAB in here");
    open();
    select(u"One"_qs);
    QCOMPARE(comment(), u"The first one"_qs);
    const MessageBoxes boxes;
    select(u"NoTab"_qs);
    QCOMPARE(comment(), QString());
    QVERIFY(boxes.seen().empty());
}

void tst_frmModes::okChoosesTheMode()
{
    select(u"One"_qs);
    click("cmdOK");
    QCOMPARE(state_->Settings.CurrentMode, u"One"_qs);
    QCOMPARE(refills_, 1);
    QVERIFY(!dialog_->isVisible());
    QVERIFY(!state_->TransferValue.isValid());
}

void tst_frmModes::doubleClickIsOk()
{
    auto *list = find<QListWidget>("lstModes");
    const QRect place = list->visualItemRect(list->item(0));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place.center());
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place.center());
    QCOMPARE(state_->Settings.CurrentMode, u"One"_qs);
    QVERIFY(!dialog_->isVisible());
    QVERIFY(!state_->TransferValue.isValid());
}

void tst_frmModes::transcribeTellsSo()
{
    select(u"One"_qs);
    click("cmdTranscribe");
    QCOMPARE(state_->TransferValue, QVariant(u"Transcribe"_qs));
    QCOMPARE(state_->Settings.CurrentMode, u"One"_qs);
    QCOMPARE(refills_, 1);
    QVERIFY(!dialog_->isVisible());
}

void tst_frmModes::cancelChangesNothing_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("button") << false;
    QTest::newRow("Escape") << true;
}

void tst_frmModes::cancelChangesNothing()
{
    QFETCH(bool, byKey);
    select(u"One"_qs);
    if (byKey)
        QTest::keyClick(find<QListWidget>("lstModes"), Qt::Key_Escape);
    else
        click("cmdCancel");
    QVERIFY(!dialog_->isVisible());
    QCOMPARE(state_->Settings.CurrentMode, u"Two"_qs);
    QCOMPARE(refills_, 0);
}

void tst_frmModes::vanishedModeIsNotChosen()
{
    select(u"One"_qs);
    QVERIFY(QFile::remove(modes_->path(u"One.mod"_qs)));
    const MessageBoxes boxes;
    click("cmdOK");
    QCOMPARE(state_->Settings.CurrentMode, u"Two"_qs);
    QVERIFY(boxes.seen().empty());
    QVERIFY(!dialog_->isVisible());
}

void tst_frmModes::deleteAsksFirst()
{
    const MessageBoxes boxes({QMessageBox::No});
    click("cmdDelete");
    QCOMPARE(boxes.seen().size(), 1u);
    QCOMPARE(boxes.seen().front().text,
             u"The mode \"Two\" will be permanently removed from your hard drive. Do you wish to "
             "continue?"_qs);
    QCOMPARE(boxes.seen().front().title, u"Delete mode"_qs);
    QCOMPARE(boxes.seen().front().icon, QMessageBox::Warning);
    QCOMPARE(boxes.seen().front().defaultButton, QMessageBox::No);
    QVERIFY(QFile::exists(modes_->path(u"Two.mod"_qs)));
    QCOMPARE(state_->Settings.CurrentMode, u"Two"_qs);
}

void tst_frmModes::deleteRemovesTheFile()
{
    const MessageBoxes boxes({QMessageBox::Yes});
    click("cmdDelete");
    QVERIFY(!QFile::exists(modes_->path(u"Two.mod"_qs)));
    QCOMPARE(find<QListWidget>("lstModes")->count(), 1);
    QCOMPARE(state_->Settings.CurrentMode, QString());
    QCOMPARE(comment(), QString());
    QVERIFY(dialog_->isVisible());
}

void tst_frmModes::deleteOfTheLastMode()
{
    QVERIFY(QFile::remove(modes_->path(u"One.mod"_qs)));
    const MessageBoxes boxes({QMessageBox::Yes});
    click("cmdDelete");
    QCOMPARE(find<QListWidget>("lstModes")->count(), 0);
    QCOMPARE(state_->Settings.CurrentMode, QString());
}

void tst_frmModes::deleteOfAMissingFile()
{
    QVERIFY(QFile::remove(modes_->path(u"Two.mod"_qs)));
    const MessageBoxes boxes;
    click("cmdDelete");
    QCOMPARE(boxes.seen().size(), 1u);
    QCOMPARE(boxes.seen().front().text, u"Warning: the mode \"Two\" could not be found!"_qs);
    QCOMPARE(boxes.seen().front().title, u"Delete"_qs);
    QCOMPARE(boxes.seen().front().icon, QMessageBox::Critical);
    QCOMPARE(find<QListWidget>("lstModes")->count(), 2);
}

void tst_frmModes::deleteThatFails()
{
    // The file turns into a folder with something in it while the question is open.
    const MessageBoxes boxes({QMessageBox::Yes});
    QTimer::singleShot(0, dialog_.get(), [this] {
        QFile::remove(modes_->path(u"Two.mod"_qs));
        QDir(modes_->path()).mkpath(u"Two.mod/inside"_qs);
    });
    click("cmdDelete");
    QCOMPARE(boxes.seen().size(), 2u);
    QCOMPARE(boxes.seen().back().title, u"Quillon"_qs);
    QVERIFY(boxes.seen().back().text.startsWith(u"Run-time error '75':"_qs));
    QVERIFY(dialog_->isVisible());
}

void tst_frmModes::restoreCopiesIntoTheProgramFolder()
{
    const QByteArray backup = ModeBytes("As it came\t0").bytes();
    program_->write(u"Two.bak"_qs, backup);
    program_->write(u"Two.mod"_qs, "changed");
    const MessageBoxes boxes({QMessageBox::Yes, QMessageBox::Ok});
    click("cmdRestore");
    QCOMPARE(boxes.seen().size(), 2u);
    QCOMPARE(boxes.seen().back().text, u"Original mode restored!"_qs);
    QCOMPARE(boxes.seen().back().title, u"Mode restored"_qs);
    QCOMPARE(boxes.seen().back().icon, QMessageBox::Information);
    QFile restored(program_->path(u"Two.mod"_qs));
    QVERIFY(restored.open(QIODevice::ReadOnly));
    QCOMPARE(restored.readAll(), backup);
    QCOMPARE(comment(), u"The <b>second</b> & last"_qs); // the modes folder is another one
}

void tst_frmModes::restoreAsksFirst()
{
    program_->write(u"Two.bak"_qs, "backup");
    const MessageBoxes boxes({QMessageBox::No});
    click("cmdRestore");
    QCOMPARE(boxes.seen().size(), 1u);
    QCOMPARE(boxes.seen().front().text,
             u"Are you sure you wish to restore the Two mode to its original state? All changes "
             "will be permanently lost!"_qs);
    QCOMPARE(boxes.seen().front().title, u"Restore mode"_qs);
    QCOMPARE(boxes.seen().front().icon, QMessageBox::Warning);
    QCOMPARE(boxes.seen().front().defaultButton, QMessageBox::No);
    QVERIFY(!QFile::exists(program_->path(u"Two.mod"_qs)));
}

void tst_frmModes::restoreWithoutBackup()
{
    const MessageBoxes boxes({QMessageBox::Yes});
    click("cmdRestore");
    QCOMPARE(boxes.seen().size(), 2u);
    QCOMPARE(boxes.seen().back().text, u"'Two.bak' could not be found. Could not restore mode."_qs);
    QCOMPARE(boxes.seen().back().title, u"Restore mode"_qs);
    QCOMPARE(boxes.seen().back().icon, QMessageBox::Warning);
}

void tst_frmModes::f5RefillsTheList()
{
    modes_->add(u"Three"_qs);
    auto *list = find<QListWidget>("lstModes");
    QTest::keyClick(list, Qt::Key_F5, Qt::ShiftModifier);
    QCOMPARE(list->count(), 2);
    QTest::keyClick(list, Qt::Key_F5);
    QCOMPARE(list->count(), 3);
    QCOMPARE(list->currentItem()->text(), u"Two"_qs);
}

void tst_frmModes::fontsAndNames()
{
    QCOMPARE(dialog_->objectName(), u"frmModes"_qs);
    QCOMPARE(find<QListWidget>("lstModes")->font().family(), u"Some Font"_qs);
    for (const auto *control : dialog_->findChildren<QPushButton *>())
        QVERIFY(control->objectName().startsWith(u"cmd"_qs));
}

QTEST_MAIN(tst_frmModes)
#include "tst_frmmodes.moc"
