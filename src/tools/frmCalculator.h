#pragma once

#include <QDialog>
#include <memory>

class StoredSettings;
enum class NumericBase : qint16;
namespace Ui {
class frmCalculator;
}
struct SharedState;

/// The dialog that writes numbers as Tengwar numerals and list items as Tengwar letters. Closed by
/// Insert it is accepted and leaves in `TransferText` what is to be inserted; an inserted list item
/// advances `NextListItem`, and the settings of the dialog are stored.
class frmCalculator final : public QDialog
{
    Q_OBJECT

public:
    frmCalculator(SharedState &state, StoredSettings &stored, QWidget *parent);
    ~frmCalculator() override;

    /// Enters a decimal number as if it had been typed.
    void enterDecimal(const QString &number);

private:
    enum class Tab { Numerals, Items };

    void connectControls();
    void restoreSettings();
    void storeSettings(Tab tab);
    [[nodiscard]] NumericBase numericBase() const;
    [[nodiscard]] Tab selectedTab() const;
    void showTab();
    void chooseBase();
    void chooseIndicator(int index);
    void alignNumeral();
    void convertDecimal();
    void convertDuodecimal();
    void GenerateNumericals();
    void GenerateItem();
    void insert(Tab tab);

    SharedState &state_;
    StoredSettings &stored_;
    std::unique_ptr<Ui::frmCalculator> ui_;
};
