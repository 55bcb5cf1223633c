#include "tools/frmCalculator.h"

#include "editor/ApplyFormFonts.h"
#include "editor/FilterNumericKey.h"
#include "editor/FilterTypedKeys.h"
#include "editor/SelectAllOnFocus.h"
#include "editor/SettingKeys.h"
#include "editor/SharedState.h"
#include "editor/StoredSettings.h"
#include "engine/RuntimeError.h"
#include "platform/RunCommand.h"
#include "tools/ListItems.h"
#include "tools/Numerals.h"
#include "ui_frmCalculator.h"

#include <algorithm>

namespace {

namespace Value {
const QString NumericIndicator = QStringLiteral("NumericIndicator");
const QString LeastSignificantDigit = QStringLiteral("LeastSignificantDigit");
const QString Reverse = QStringLiteral("Reverse");
const QString SelectedTab = QStringLiteral("SelectedTab");
const QString NumericBase = QStringLiteral("NumericBase");
} // namespace Value

/// The number as duodecimal digits, the most significant one first; none for 0.
QString duodecimalText(qint32 value)
{
    std::vector<qint16> digits(2);
    qint16 count = 0;
    CalcDuodecimal(value, count, digits);
    QString text;
    while (count-- > 0)
        text += QString::number(digits[size_t(count)], 12).toUpper();
    return text;
}

/// What a conversion gives, or nothing for a number that it can't convert: the other base still
/// writes that number.
QString convertedOrEmpty(const std::function<QString()> &conversion)
{
    try {
        return conversion();
    } catch (const RuntimeError &) {
        return {};
    }
}

char16_t filterDuodecimalKey(char16_t key)
{
    if (key == u'a' || key == u'b')
        return QChar::toUpper(char32_t(key));
    return key == u'A' || key == u'B' ? key : FilterNumericKey(key);
}

} // namespace

frmCalculator::frmCalculator(SharedState &state, StoredSettings &stored, QWidget *parent)
    : QDialog(parent), state_(state), stored_(stored), ui_(std::make_unique<Ui::frmCalculator>())
{
    ui_->setupUi(this);
    ApplyFormFonts(*this, state_.Settings);
    ui_->lstListItems->addItems(listItemTexts());
    connectControls();
    restoreSettings();
}

frmCalculator::~frmCalculator() = default;

void frmCalculator::connectControls()
{
    for (QLineEdit *box : {ui_->txtDecimal, ui_->txtDuodecimal})
        SelectAllOnFocus(*box);
    filterTypedKeys(*ui_->txtDecimal, [](char16_t key) { return FilterNumericKey(key); });
    filterTypedKeys(*ui_->txtDuodecimal, filterDuodecimalKey);
    // Only the box that is being typed into converts, or the two would go on changing each other.
    connect(ui_->txtDecimal, &QLineEdit::textChanged, this, [this] {
        if (focusWidget() == ui_->txtDecimal)
            convertDecimal();
    });
    connect(ui_->txtDuodecimal, &QLineEdit::textChanged, this, [this] {
        if (focusWidget() == ui_->txtDuodecimal)
            convertDuodecimal();
    });
    connect(ui_->optBase_0, &QRadioButton::toggled, this, &frmCalculator::chooseBase);
    for (QComboBox *list : {ui_->cboNumericIndicator, ui_->cboListIndicator})
        connect(list, &QComboBox::currentIndexChanged, this, &frmCalculator::chooseIndicator);
    connect(ui_->chkLeastSignificant, &QCheckBox::toggled, this,
            &frmCalculator::GenerateNumericals);
    connect(ui_->chkReverse, &QCheckBox::toggled, this, &frmCalculator::alignNumeral);
    connect(ui_->lstListItems, &QListWidget::currentRowChanged, this, &frmCalculator::GenerateItem);
    connect(ui_->TabStrip1, &QTabWidget::currentChanged, this, &frmCalculator::showTab);
    for (const auto &[button, tab] :
         {std::pair(ui_->cmdOK_0, Tab::Numerals), std::pair(ui_->cmdOK_1, Tab::Items)})
        connect(button, &QPushButton::clicked, this,
                [this, tab = tab] { runCommand(this, [this, tab] { insert(tab); }); });
    for (const QPushButton *button : {ui_->cmdCancel_0, ui_->cmdCancel_1})
        connect(button, &QPushButton::clicked, this, &frmCalculator::reject);
}

void frmCalculator::restoreSettings()
{
    const auto number = [this](const QString &name) {
        return stored_.number(SettingKey::Numerals, name);
    };
    const bool isFirstUse = stored_.text(SettingKey::Numerals, Value::Reverse).isEmpty();
    ui_->chkReverse->setChecked(isFirstUse || number(Value::Reverse) != 0);
    ui_->chkLeastSignificant->setChecked(isFirstUse || number(Value::LeastSignificantDigit) != 0);
    // No indicator at the first use, though the dialog was once meant to offer dots then.
    const int indicator = isFirstUse ? 0 : number(Value::NumericIndicator);
    ui_->cboNumericIndicator->setCurrentIndex(std::clamp(indicator, 0, 2));
    ui_->lstListItems->setCurrentRow(state_.NextListItem);
    const bool isDuodecimal = !isFirstUse && number(Value::NumericBase) != 0;
    (isDuodecimal ? ui_->optBase_1 : ui_->optBase_0)->setChecked(true);
    ui_->TabStrip1->setCurrentIndex(!isFirstUse && number(Value::SelectedTab) != 0 ? 1 : 0);
    alignNumeral();
    chooseBase();
    showTab();
}

void frmCalculator::storeSettings(Tab tab)
{
    const auto store = [this](const QString &name, int value) {
        stored_.write(SettingKey::Numerals, name, value);
    };
    const QComboBox *indicator =
        tab == Tab::Items ? ui_->cboListIndicator : ui_->cboNumericIndicator;
    store(Value::NumericIndicator, indicator->currentIndex());
    store(Value::LeastSignificantDigit, ui_->chkLeastSignificant->isChecked() ? 1 : 0);
    store(Value::Reverse, ui_->chkReverse->isChecked() ? 1 : 0);
    store(Value::SelectedTab, ui_->TabStrip1->currentIndex());
    store(Value::NumericBase, int(numericBase()));
}

void frmCalculator::enterDecimal(const QString &number)
{
    ui_->txtDecimal->setText(number);
    convertDecimal();
}

NumericBase frmCalculator::numericBase() const
{
    return ui_->optBase_1->isChecked() ? NumericBase::Duodecimal : NumericBase::Decimal;
}

frmCalculator::Tab frmCalculator::selectedTab() const
{
    return ui_->TabStrip1->currentWidget() == ui_->fraTabItems ? Tab::Items : Tab::Numerals;
}

void frmCalculator::showTab()
{
    if (selectedTab() == Tab::Items) {
        ui_->cmdOK_1->setDefault(true);
        ui_->lstListItems->setFocus();
        return;
    }
    ui_->cmdOK_0->setDefault(true);
    const bool isDecimal = numericBase() == NumericBase::Decimal;
    (isDecimal ? ui_->txtDecimal : ui_->txtDuodecimal)->setFocus();
}

void frmCalculator::chooseBase()
{
    ui_->chkLeastSignificant->setEnabled(numericBase() == NumericBase::Duodecimal);
    GenerateNumericals();
}

/// Both tabs share one indicator.
void frmCalculator::chooseIndicator(int index)
{
    ui_->cboNumericIndicator->setCurrentIndex(index);
    ui_->cboListIndicator->setCurrentIndex(index);
    GenerateNumericals();
    GenerateItem();
}

void frmCalculator::alignNumeral()
{
    const Qt::Alignment side = ui_->chkReverse->isChecked() ? Qt::AlignLeft : Qt::AlignRight;
    ui_->lblTengwar->setAlignment(side | Qt::AlignVCenter);
    GenerateNumericals();
}

void frmCalculator::convertDecimal()
{
    const QString text = ui_->txtDecimal->text();
    ui_->txtDuodecimal->setText(
        convertedOrEmpty([&] { return duodecimalText(wholeNumber(text)); }));
    GenerateNumericals();
}

void frmCalculator::convertDuodecimal()
{
    const QString text = ui_->txtDuodecimal->text();
    ui_->txtDecimal->setText(convertedOrEmpty(
        [&] { return text.isEmpty() ? QString() : QString::number(CalcDecimal(text)); }));
    GenerateNumericals();
}

void frmCalculator::GenerateNumericals()
{
    const QLineEdit *box =
        numericBase() == NumericBase::Decimal ? ui_->txtDecimal : ui_->txtDuodecimal;
    ui_->lblTengwar->setText(tengwarNumeral(
        box->text(), {.base = numericBase(),
                      .indicator = Indicator(ui_->cboNumericIndicator->currentIndex()),
                      .marksLeastSignificantDigit = ui_->chkLeastSignificant->isChecked(),
                      .isReversed = ui_->chkReverse->isChecked()}));
}

void frmCalculator::GenerateItem()
{
    const int item = ui_->lstListItems->currentRow();
    if (item >= 0)
        ui_->lblItemSample->setText(
            tengwarListItem(item, Indicator(ui_->cboListIndicator->currentIndex())));
}

void frmCalculator::insert(Tab tab)
{
    if (tab == Tab::Items) {
        state_.TransferText = ui_->lblItemSample->text();
        state_.NextListItem = qint16((state_.NextListItem + 1) % ListItemCount);
    } else {
        state_.TransferText = ui_->lblTengwar->text();
    }
    storeSettings(tab);
    accept();
}
