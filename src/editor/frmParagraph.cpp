#include "editor/frmParagraph.h"

#include "editor/ApplyFormFonts.h"
#include "editor/EnteredNumber.h"
#include "editor/NumericBox.h"
#include "editor/Settings.h"
#include "platform/MessageBox.h"
#include "platform/ScreenUnits.h"
#include "ui_frmParagraph.h"

#include <cmath>

namespace {

constexpr int largestIndent = 22 * twipsPerInch; // the widest page that word processors know

/// A number with one decimal; halves, as they stand in decimal notation, go away from zero.
QString oneDecimal(double number)
{
    const double tenths = std::round(number * 10);
    return QString::number(tenths == 0 ? 0 : tenths / 10, 'f', 1);
}

} // namespace

frmParagraph::frmParagraph(const Settings &settings, const SelectionFormat &shown, QWidget *parent)
    : QDialog(parent), unitFactor_(settings.UnitFactor), shownAlignment_(shown.alignment),
      ui_(std::make_unique<Ui::frmParagraph>())
{
    ui_->setupUi(this);
    ApplyFormFonts(*this, settings);
    for (QLabel *label : {ui_->lblUnit_0, ui_->lblUnit_1, ui_->lblUnit_2, ui_->lblUnit_3})
        label->setText(settings.StandardUnit);

    addIndent(ui_->txtLeftIndent, shown.hangingIndent, &ParagraphAttributes::hangingIndent);
    addIndent(ui_->txtRightIndent, shown.rightIndent, &ParagraphAttributes::rightIndent);
    addIndent(ui_->txtFirstLineIndent, shown.indent, &ParagraphAttributes::indent);
    addIndent(ui_->txtBulletedIndent, shown.bulletIndent, &ParagraphAttributes::bulletIndent);
    constexpr NumericKeys decimal = NumericKey::Decimal;
    makeNumeric(*ui_->txtLeftIndent, decimal | NumericKey::Sign);
    makeNumeric(*ui_->txtRightIndent, decimal);
    makeNumeric(*ui_->txtFirstLineIndent, decimal | NumericKey::Sign);
    makeNumeric(*ui_->txtBulletedIndent, decimal);
    ui_->cmbAlignment->setCurrentIndex(shown.alignment ? int(*shown.alignment) : -1);

    connect(ui_->cmbAlignment, &QComboBox::activated, this, [this] { alignmentWasChosen_ = true; });
    connect(ui_->cmdOK, &QPushButton::clicked, this, &frmParagraph::confirm);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmParagraph::reject);
}

frmParagraph::~frmParagraph() = default;

void frmParagraph::addIndent(QLineEdit *box, std::optional<int> twips,
                             std::optional<int> ParagraphAttributes::*attribute)
{
    if (twips)
        box->setText(oneDecimal(*twips / unitFactor_));
    indents_.push_back({box, !twips, attribute});
}

void frmParagraph::confirm()
{
    for (const IndentBox &indent : indents_) {
        if (!read(indent))
            return;
    }
    const int entry = ui_->cmbAlignment->currentIndex();
    // Justified text is listed as aligned left and must not lose that unasked.
    if (entry >= 0 && (alignmentWasChosen_ || Alignment(entry) != shownAlignment_))
        entered_.alignment = Alignment(entry);
    accept();
}

bool frmParagraph::read(const IndentBox &indent)
{
    const QString text = indent.box->text();
    const std::optional<double> number = enteredNumber(text);
    const double twips = number.value_or(0) * unitFactor_;
    entered_.*indent.attribute = {};
    if (indent.wasMixed && text.isEmpty())
        return true;
    if (number && std::abs(twips) <= largestIndent) {
        entered_.*indent.attribute = int(std::lround(twips));
        return true;
    }
    const QString complaint =
        number ? QStringLiteral("An indent can be at most %1 %2.")
                     .arg(oneDecimal(largestIndent / unitFactor_), ui_->lblUnit_0->text())
               : QStringLiteral("\"%1\" is not a number.").arg(text);
    showMessage(this, {.text = complaint, .title = windowTitle(), .icon = QMessageBox::Warning});
    indent.box->setFocus();
    indent.box->selectAll();
    return false;
}
