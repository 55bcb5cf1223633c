#pragma once

#include "platform/SelectionFormat.h"

#include <QDialog>
#include <memory>
#include <vector>

namespace Ui {
class frmParagraph;
}
class QLineEdit;
struct Settings;

/// The paragraph attributes that the dialog returns, in twips. No value: to be left alone.
struct ParagraphAttributes
{
    std::optional<int> indent;
    std::optional<int> hangingIndent;
    std::optional<int> rightIndent;
    std::optional<int> bulletIndent;
    std::optional<Alignment> alignment;
};

/// The dialog for indents and alignment of paragraphs, in the user's standard unit.
class frmParagraph final : public QDialog
{
    Q_OBJECT

public:
    frmParagraph(const Settings &settings, const SelectionFormat &shown, QWidget *parent);
    ~frmParagraph() override;

    /// What the user has entered, once accepted.
    [[nodiscard]] const ParagraphAttributes &entered() const { return entered_; }

private:
    /// One of the four indents: its text box, the mixed state it began in and where it goes.
    struct IndentBox
    {
        QLineEdit *box;
        bool wasMixed;
        std::optional<int> ParagraphAttributes::*attribute;
    };

    void addIndent(QLineEdit *box, std::optional<int> twips,
                   std::optional<int> ParagraphAttributes::*attribute);
    void confirm();
    [[nodiscard]] bool read(const IndentBox &indent);

    double unitFactor_;
    std::vector<IndentBox> indents_;
    std::optional<Alignment> shownAlignment_;
    bool alignmentWasChosen_ = false; ///< though perhaps it is the one that was shown
    ParagraphAttributes entered_;
    std::unique_ptr<Ui::frmParagraph> ui_;
};
