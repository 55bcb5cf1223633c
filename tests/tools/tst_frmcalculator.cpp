#include "tools/frmCalculator.h"

#include "editor/SettingKeys.h"
#include "editor/SharedState.h"
#include "engine/CodePage.h"
#include "support/DialogControls.h"
#include "support/RegistryFolder.h"
#include "tools/ListItems.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>

namespace {

QString codes(const QByteArray &hex)
{
    return fromCodePage(QByteArray::fromHex(hex));
}

/// The dialog, open, with the state and settings that it works on.
class Calculator : public RegistryFolder, public DialogControls
{
public:
    void open()
    {
        dialog = std::make_unique<frmCalculator>(state, settings, nullptr);
        dialog->show();
        QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
        QCoreApplication::processEvents();
    }

    void choose(const char *list, const QString &entry)
    {
        auto &combo = get<QComboBox>(list);
        combo.setFocus();
        QTest::keyClick(&combo, Qt::Key_Home);
        for (int step = combo.findText(entry); step > 0; --step)
            QTest::keyClick(&combo, Qt::Key_Down);
        QCOMPARE(combo.currentText(), entry);
    }

    [[nodiscard]] QString numeral() const { return get<QLabel>("lblTengwar").text(); }
    [[nodiscard]] QString item() const { return get<QLabel>("lblItemSample").text(); }
    [[nodiscard]] QString text(const char *box) const { return get<QLineEdit>(box).text(); }

    [[nodiscard]] QString setting(const char *name) const
    {
        return settings.text(SettingKey::Numerals, QLatin1String(name));
    }

    SharedState state;
    std::unique_ptr<frmCalculator> dialog;

private:
    [[nodiscard]] QWidget &driven() const override { return *dialog; }
};

} // namespace

class tst_frmCalculator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void firstUse();
    void decimalConverts();
    void duodecimalConverts();
    void keysAreFiltered_data();
    void keysAreFiltered();
    void zero();
    void beyondRange();
    void strayCharacters();
    void workedExample();
    void leastSignificantNeedsDuodecimal();
    void reverseAligns();
    void indicatorsAreShared();
    void everyItemWithEachIndicator();
    void tabsChooseButtonAndFocus();
    void insertsNumeral();
    void insertsItems();
    void cancelChangesNothing();
    void settingsComeBack();
    void damagedSettings();
    void numberIsEntered_data();
    void numberIsEntered();
    void namesAndFonts();
};

void tst_frmCalculator::firstUse()
{
    Calculator calculator;
    calculator.open();
    QCOMPARE(calculator.dialog->windowTitle(), u"Tengwar Calculator"_qs);
    QVERIFY(calculator.get<QCheckBox>("chkReverse").isChecked());
    QVERIFY(calculator.get<QCheckBox>("chkLeastSignificant").isChecked());
    QVERIFY(!calculator.get<QCheckBox>("chkLeastSignificant").isEnabled());
    QCOMPARE(calculator.get<QComboBox>("cboNumericIndicator").currentText(), u"<None>"_qs);
    QCOMPARE(calculator.get<QComboBox>("cboListIndicator").currentText(), u"<None>"_qs);
    QVERIFY(calculator.get<QRadioButton>("optBase_0").isChecked());
    QCOMPARE(calculator.get<QTabWidget>("TabStrip1").currentIndex(), 0);
    QVERIFY(calculator.get<QLineEdit>("txtDecimal").hasFocus());
    QCOMPARE(calculator.numeral(), QString());
    QVERIFY(calculator.get<QLabel>("lblTengwar").alignment().testFlag(Qt::AlignLeft));
}

void tst_frmCalculator::decimalConverts()
{
    Calculator calculator;
    calculator.open();
    calculator.type("txtDecimal", u"143"_qs);
    QCOMPARE(calculator.text("txtDuodecimal"), u"BB"_qs);
    QCOMPARE(calculator.numeral(), codes("F3F4F1"));
    calculator.type("txtDecimal", QString());
    QCOMPARE(calculator.text("txtDuodecimal"), QString());
    QCOMPARE(calculator.numeral(), QString());
}

void tst_frmCalculator::duodecimalConverts()
{
    Calculator calculator;
    calculator.open();
    calculator.type("txtDuodecimal", u"1a0"_qs);
    QCOMPARE(calculator.text("txtDuodecimal"), u"1A0"_qs);
    QCOMPARE(calculator.text("txtDecimal"), u"264"_qs);
    // The decimal base is chosen, so the decimal number is what is written.
    QCOMPARE(calculator.numeral(), codes("F4F6F2"));
    calculator.click("optBase_1");
    QCOMPARE(calculator.numeral(), codes("F098FAF1"));
    calculator.type("txtDuodecimal", QString());
    QCOMPARE(calculator.text("txtDecimal"), QString());
}

void tst_frmCalculator::keysAreFiltered_data()
{
    QTest::addColumn<QByteArray>("box");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("kept");
    QTest::newRow("decimal") << QByteArray("txtDecimal") << u"1a2,3.4-5 é6B"_qs << u"123456"_qs;
    QTest::newRow("duodecimal") << QByteArray("txtDuodecimal") << u"aAbBcC 1+2"_qs << u"AABB12"_qs;
}

void tst_frmCalculator::keysAreFiltered()
{
    QFETCH(QByteArray, box);
    QFETCH(QString, typed);
    Calculator calculator;
    calculator.open();
    auto &control = calculator.get<QLineEdit>(box.constData());
    control.setFocus();
    for (const QChar character : typed)
        QTest::sendKeyEvent(QTest::Click, &control, Qt::Key_unknown, QString(character), {});
    QTEST(control.text(), "kept");
    QTest::keyClick(&control, Qt::Key_Backspace);
    QTest::keyClick(&control, Qt::Key_Home);
    QTest::keyClick(&control, Qt::Key_Delete);
    QCOMPARE(control.text().size(), 4);
}

void tst_frmCalculator::zero()
{
    Calculator calculator;
    calculator.open();
    calculator.choose("cboNumericIndicator", u"Dot"_qs);
    calculator.type("txtDecimal", u"0"_qs);
    QCOMPARE(calculator.text("txtDuodecimal"), QString());
    QCOMPARE(calculator.numeral(), codes("F054"));
}

void tst_frmCalculator::beyondRange()
{
    Calculator calculator;
    calculator.open();
    calculator.type("txtDecimal", u"2147483648"_qs);
    QCOMPARE(calculator.text("txtDuodecimal"), QString());
    QCOMPARE(calculator.numeral(), codes("F8F4F6F3F8F4F7F4F1F2"));
    calculator.click("optBase_1");
    calculator.type("txtDuodecimal", u"4BB2308A7"_qs);
    QCOMPARE(calculator.text("txtDecimal"), u"2147483647"_qs);
    calculator.type("txtDuodecimal", u"BBBBBBBBB"_qs);
    QCOMPARE(calculator.text("txtDecimal"), QString());
    QCOMPARE(calculator.numeral().size(), 10);
}

void tst_frmCalculator::strayCharacters()
{
    Calculator calculator;
    calculator.open();
    calculator.click("chkReverse");
    for (const QString &text : {u"1x2"_qs, u"-5"_qs, u"\n"_qs, u"😀"_qs}) {
        QGuiApplication::clipboard()->setText(text);
        for (const char *box : {"txtDecimal", "txtDuodecimal"}) {
            auto &control = calculator.get<QLineEdit>(box);
            control.setFocus();
            control.selectAll();
            QTest::keySequence(&control, QKeySequence::Paste);
            QCOMPARE(control.text(), text);
        }
    }
    auto &control = calculator.get<QLineEdit>("txtDecimal");
    control.setFocus();
    control.selectAll();
    QGuiApplication::clipboard()->setText(u"1x2"_qs);
    QTest::keySequence(&control, QKeySequence::Paste);
    QCOMPARE(calculator.numeral(), codes("F1F1F2"));
    QCOMPARE(calculator.text("txtDuodecimal"), QString());
}

void tst_frmCalculator::workedExample()
{
    Calculator calculator;
    calculator.open();
    calculator.type("txtDecimal", u"144"_qs);
    QCOMPARE(calculator.text("txtDuodecimal"), u"100"_qs);
    calculator.click("optBase_1");
    calculator.choose("cboNumericIndicator", u"Dot"_qs);
    QCOMPARE(calculator.numeral(), codes("F099F0C9F1C9"));
    calculator.click("chkReverse");
    QCOMPARE(calculator.numeral(), codes("F1C9F0C9F099"));
    calculator.choose("cboNumericIndicator", u"Bar"_qs);
    calculator.click("chkLeastSignificant");
    QCOMPARE(calculator.numeral(), codes("F127F027F027"));
    calculator.click("optBase_0");
    calculator.choose("cboNumericIndicator", u"Dot"_qs);
    calculator.click("chkReverse");
    QCOMPARE(calculator.numeral(), codes("F454F454F154"));
}

void tst_frmCalculator::leastSignificantNeedsDuodecimal()
{
    Calculator calculator;
    calculator.open();
    calculator.click("optBase_1");
    QVERIFY(calculator.get<QCheckBox>("chkLeastSignificant").isEnabled());
    calculator.click("optBase_0");
    QVERIFY(!calculator.get<QCheckBox>("chkLeastSignificant").isEnabled());
}

void tst_frmCalculator::reverseAligns()
{
    Calculator calculator;
    calculator.open();
    calculator.click("chkReverse");
    QVERIFY(calculator.get<QLabel>("lblTengwar").alignment().testFlag(Qt::AlignRight));
    calculator.click("chkReverse");
    QVERIFY(calculator.get<QLabel>("lblTengwar").alignment().testFlag(Qt::AlignLeft));
}

void tst_frmCalculator::indicatorsAreShared()
{
    Calculator calculator;
    calculator.open();
    calculator.type("txtDecimal", u"3"_qs);
    calculator.choose("cboNumericIndicator", u"Bar"_qs);
    QCOMPARE(calculator.get<QComboBox>("cboListIndicator").currentText(), u"Bar"_qs);
    QCOMPARE(calculator.item(), u"1["_qs);
    calculator.get<QTabWidget>("TabStrip1").setCurrentIndex(1);
    calculator.choose("cboListIndicator", u"Dot"_qs);
    QCOMPARE(calculator.get<QComboBox>("cboNumericIndicator").currentText(), u"Dot"_qs);
    QCOMPARE(calculator.numeral(), codes("F325"));
}

void tst_frmCalculator::everyItemWithEachIndicator()
{
    Calculator calculator;
    calculator.open();
    calculator.get<QTabWidget>("TabStrip1").setCurrentIndex(1);
    auto &list = calculator.get<QListWidget>("lstListItems");
    QCOMPARE(list.count(), 24);
    for (const Indicator indicator : {Indicator::None, Indicator::Dot, Indicator::Bar}) {
        calculator.get<QComboBox>("cboListIndicator").setCurrentIndex(int(indicator));
        QTest::keyClick(&list, Qt::Key_Home);
        for (int item = 0; item < ListItemCount; ++item) {
            QCOMPARE(list.currentRow(), item);
            QCOMPARE(calculator.item(), tengwarListItem(item, indicator));
            QTest::keyClick(&list, Qt::Key_Down);
        }
    }
    const QString last = calculator.item();
    list.setCurrentRow(-1);
    QCOMPARE(calculator.item(), last);
}

void tst_frmCalculator::tabsChooseButtonAndFocus()
{
    Calculator calculator;
    calculator.open();
    QVERIFY(calculator.get<QPushButton>("cmdOK_0").isDefault());
    QTest::keyClick(calculator.dialog.get(), Qt::Key_I, Qt::AltModifier);
    QVERIFY(calculator.get<QPushButton>("cmdOK_1").isDefault());
    QVERIFY(calculator.get<QListWidget>("lstListItems").hasFocus());
    QTest::keyClick(calculator.dialog.get(), Qt::Key_N, Qt::AltModifier);
    QVERIFY(calculator.get<QPushButton>("cmdOK_0").isDefault());
    QVERIFY(calculator.get<QLineEdit>("txtDecimal").hasFocus());
    calculator.click("optBase_1");
    QTest::keyClick(calculator.dialog.get(), Qt::Key_I, Qt::AltModifier);
    QTest::keyClick(calculator.dialog.get(), Qt::Key_N, Qt::AltModifier);
    QVERIFY(calculator.get<QLineEdit>("txtDuodecimal").hasFocus());
}

void tst_frmCalculator::insertsNumeral()
{
    Calculator calculator;
    calculator.open();
    calculator.click("optBase_1");
    calculator.click("chkLeastSignificant");
    calculator.choose("cboNumericIndicator", u"Bar"_qs);
    calculator.type("txtDuodecimal", u"1"_qs);
    QTest::keyClick(&calculator.get<QLineEdit>("txtDuodecimal"), Qt::Key_Return);
    QVERIFY(!calculator.dialog->isVisible());
    QCOMPARE(calculator.dialog->result(), int(QDialog::Accepted));
    QCOMPARE(calculator.state.TransferText, codes("F127"));
    QCOMPARE(calculator.state.NextListItem, qint16(0));
    QCOMPARE(calculator.setting("NumericIndicator"), u"2"_qs);
    QCOMPARE(calculator.setting("LeastSignificantDigit"), u"0"_qs);
    QCOMPARE(calculator.setting("Reverse"), u"1"_qs);
    QCOMPARE(calculator.setting("SelectedTab"), u"0"_qs);
    QCOMPARE(calculator.setting("NumericBase"), u"1"_qs);
}

void tst_frmCalculator::insertsItems()
{
    Calculator calculator;
    for (int turn = 0; turn <= ListItemCount; ++turn) {
        calculator.open();
        calculator.get<QTabWidget>("TabStrip1").setCurrentIndex(1);
        auto &list = calculator.get<QListWidget>("lstListItems");
        QCOMPARE(list.currentRow(), turn % ListItemCount);
        QTest::keyClick(&list, Qt::Key_Return);
        QCOMPARE(calculator.dialog->result(), int(QDialog::Accepted));
        QCOMPARE(calculator.state.TransferText,
                 tengwarListItem(turn % ListItemCount, Indicator::None));
    }
    QCOMPARE(calculator.setting("SelectedTab"), u"1"_qs);
}

void tst_frmCalculator::cancelChangesNothing()
{
    Calculator calculator;
    for (const char *button : {"cmdCancel_0", "cmdCancel_1"}) {
        calculator.open();
        calculator.get<QTabWidget>("TabStrip1")
            .setCurrentIndex(QByteArrayView(button).endsWith("1") ? 1 : 0);
        calculator.choose("cboListIndicator", u"Dot"_qs);
        calculator.click(button);
        QCOMPARE(calculator.dialog->result(), int(QDialog::Rejected));
    }
    calculator.open();
    QTest::keyClick(calculator.dialog.get(), Qt::Key_Escape);
    QVERIFY(!calculator.dialog->isVisible());
    QCOMPARE(calculator.state.TransferText, QString());
    QCOMPARE(calculator.state.NextListItem, qint16(0));
    QCOMPARE(calculator.setting("Reverse"), QString());
}

void tst_frmCalculator::settingsComeBack()
{
    Calculator calculator;
    calculator.open();
    calculator.click("optBase_1");
    calculator.click("chkReverse");
    calculator.click("chkLeastSignificant");
    calculator.get<QTabWidget>("TabStrip1").setCurrentIndex(1);
    calculator.choose("cboListIndicator", u"Dot"_qs);
    calculator.click("cmdOK_1");
    calculator.open();
    QVERIFY(calculator.get<QRadioButton>("optBase_1").isChecked());
    QVERIFY(!calculator.get<QCheckBox>("chkReverse").isChecked());
    QVERIFY(!calculator.get<QCheckBox>("chkLeastSignificant").isChecked());
    QCOMPARE(calculator.get<QComboBox>("cboNumericIndicator").currentText(), u"Dot"_qs);
    QCOMPARE(calculator.get<QTabWidget>("TabStrip1").currentIndex(), 1);
    QVERIFY(calculator.get<QListWidget>("lstListItems").hasFocus());
    QVERIFY(calculator.get<QPushButton>("cmdOK_1").isDefault());
    QCOMPARE(calculator.get<QListWidget>("lstListItems").currentRow(), 1);
    QCOMPARE(calculator.item(), u"qT"_qs);
}

void tst_frmCalculator::damagedSettings()
{
    Calculator calculator;
    for (const char *name : {"Reverse", "NumericIndicator", "SelectedTab", "NumericBase"})
        calculator.settings.write(SettingKey::Numerals, QLatin1String(name), u"77"_qs);
    calculator.settings.write(SettingKey::Numerals, u"LeastSignificantDigit"_qs, u"yes"_qs);
    calculator.open();
    QVERIFY(calculator.get<QCheckBox>("chkReverse").isChecked());
    QVERIFY(!calculator.get<QCheckBox>("chkLeastSignificant").isChecked());
    QCOMPARE(calculator.get<QComboBox>("cboListIndicator").currentText(), u"Bar"_qs);
    QVERIFY(calculator.get<QRadioButton>("optBase_1").isChecked());
}

void tst_frmCalculator::numberIsEntered_data()
{
    QTest::addColumn<int>("base");
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("numeral");
    QTest::newRow("decimal") << 0 << 0 << codes("F1F4F4");
    QTest::newRow("duodecimal, though the other box has the focus") << 1 << 0 << codes("F1F0F0");
    QTest::newRow("the other tab shows") << 1 << 1 << codes("F1F0F0");
}

/// Whichever control has the focus when the dialog opens.
void tst_frmCalculator::numberIsEntered()
{
    QFETCH(int, base);
    QFETCH(int, tab);
    Calculator calculator;
    calculator.settings.write(SettingKey::Numerals, u"Reverse"_qs, 0);
    calculator.settings.write(SettingKey::Numerals, u"NumericBase"_qs, base);
    calculator.settings.write(SettingKey::Numerals, u"SelectedTab"_qs, tab);
    calculator.dialog =
        std::make_unique<frmCalculator>(calculator.state, calculator.settings, nullptr);
    calculator.dialog->enterDecimal(u"144"_qs);
    QCOMPARE(calculator.text("txtDecimal"), u"144"_qs);
    QCOMPARE(calculator.text("txtDuodecimal"), u"100"_qs);
    QTEST(calculator.numeral(), "numeral");
}

void tst_frmCalculator::namesAndFonts()
{
    Calculator calculator;
    calculator.state.Settings.GenericTengwarFont = u"Some Tengwar"_qs;
    calculator.state.Settings.GenericRomanFont = u"Some Roman"_qs;
    calculator.open();
    for (const char *name : {"lblTengwar", "lblItemSample"}) {
        const QFont &font = calculator.get<QLabel>(name).font();
        QCOMPARE(font.family(), u"Some Tengwar"_qs);
        QVERIFY(font.pointSize() >= 18);
    }
    for (const char *name : {"cboNumericIndicator", "cboListIndicator"})
        QCOMPARE(calculator.get<QComboBox>(name).font().family(), u"Some Roman"_qs);
    for (const char *name :
         {"txtDecimal", "txtDuodecimal", "cboNumericIndicator", "cboListIndicator", "lstListItems"})
        QVERIFY2(!calculator.get<QWidget>(name).accessibleName().isEmpty(), name);
    for (const char *name : {"lblTengwar", "lblItemSample"}) { // their text is their name
        QVERIFY2(calculator.get<QWidget>(name).accessibleName().isEmpty(), name);
        QVERIFY2(!calculator.get<QWidget>(name).accessibleDescription().isEmpty(), name);
    }
}

QTEST_MAIN(tst_frmCalculator)
#include "tst_frmcalculator.moc"
