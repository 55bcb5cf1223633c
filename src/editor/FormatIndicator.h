#pragma once

#include "editor/FormatDisplay.h"

class QAction;
class QComboBox;
class QLabel;

/// The controls that show a pane's formatting. Actions that can be mixed get the property `mixed`.
struct FormatControls
{
    QComboBox &cboFontName;
    QComboBox &cboFontSize;
    QAction &FormatBold;
    QAction &FormatItalic;
    QAction &FormatUnderline;
    QAction &FormatLarger;
    QAction &FormatSmaller;
    QAction &LeftAlign;
    QAction &RightAlign;
    QAction &CenterAlign;
    QAction &BulletedList;
    QAction &mnuFBulletedList;
    QLabel &SelText;
};

/// Shows how the selection of a pane is formatted, and what it holds, in the controls given.
class FormatIndicator final : public FormatDisplay
{
public:
    explicit FormatIndicator(const FormatControls &controls) : controls_(controls) {}

    void ShowFormat(const RichTextBox &pane) override;
    void ShowSelText(const RichTextBox &pane) override;

private:
    FormatControls controls_;
};
