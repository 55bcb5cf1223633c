#include "app/FormControls.h"

#include "app/CaptionLabel.h"
#include "app/Splitter.h"
#include "app/ToolbarBuilder.h"
#include "app/ToolbarCombo.h"
#include "platform/RichTextBox.h"
#include <QLineEdit>

namespace {

using namespace Qt::Literals::StringLiterals;

template<typename Control> Control *named(Control *control, QLatin1StringView name)
{
    control->setObjectName(name);
    return control;
}

ToolbarCombo *makeCombo(QLatin1StringView name, QLatin1StringView tip, int characters)
{
    auto *combo = named(new ToolbarCombo, name);
    combo->setToolTip(tip + QStringLiteral(" (F6)"));
    combo->setAccessibleName(tip);
    combo->setMinimumContentsLength(characters);
    return combo;
}

void makeToolbars(QWidget &inner, FormControls &controls)
{
    controls.cboModeName = makeCombo("cboModeName"_L1, "Tengwar mode"_L1, 12);
    controls.cboFontName = makeCombo("cboFontName"_L1, "Font name"_L1, 16);
    controls.cboFontSize = makeCombo("cboFontSize"_L1, "Font size"_L1, 3);
    for (ToolbarCombo *combo : {controls.cboFontName, controls.cboFontSize}) {
        combo->setEditable(true);
        combo->lineEdit()->setAccessibleName(combo->accessibleName());
    }

    controls.Toolbar1 = named(new QToolBar(&inner), "Toolbar1"_L1);
    controls.Toolbar1->setAccessibleName(QStringLiteral("Standard toolbar"));
    buildToolbar(*controls.Toolbar1, standardToolbarTable(), {{"Mode"_L1, controls.cboModeName}});
    controls.tbrFormat = named(new QToolBar(&inner), "tbrFormat"_L1);
    controls.tbrFormat->setAccessibleName(QStringLiteral("Formatting toolbar"));
    buildToolbar(*controls.tbrFormat, formattingToolbarTable(),
                 {{"FontName"_L1, controls.cboFontName}, {"FontSize"_L1, controls.cboFontSize}});
}

void makePanes(QWidget &inner, FormControls &controls)
{
    controls.lblRomanCaption = named(new CaptionLabel(&inner), "lblRomanCaption"_L1);
    controls.lblRomanCaption->setText(QStringLiteral("Source"));
    controls.lblTengwarCaption = named(new CaptionLabel(&inner), "lblTengwarCaption"_L1);
    controls.lblTengwarCaption->setText(QStringLiteral("Target"));

    controls.rtbRoman = named(new RichTextBox(&inner), "rtbRoman"_L1);
    controls.rtbRoman->setAccessibleName(QStringLiteral("Source"));
    controls.rtbTengwar = named(new RichTextBox(&inner), "rtbTengwar"_L1);
    controls.rtbTengwar->setAccessibleName(QStringLiteral("Target"));

    controls.fraRuler = named(new QFrame(&inner), "fraRuler"_L1);
    controls.fraRuler->setAutoFillBackground(true);
    controls.fraRuler->setBackgroundRole(QPalette::Highlight);
    controls.imgRuler = named(new Splitter(*controls.fraRuler, &inner), "imgRuler"_L1);
    controls.imgRuler->setAccessibleName(QStringLiteral("Divider between the panes"));
}

QLabel *makePanel(QLatin1StringView name)
{
    auto *panel = named(new QLabel, name);
    panel->setTextFormat(Qt::PlainText);
    panel->setContentsMargins(6, 2, 6, 2);
    return panel;
}

void makeStatusBar(QWidget &inner, FormControls &controls)
{
    controls.StatusBar1 = named(new QStatusBar(&inner), "StatusBar1"_L1);
    controls.StatusBar1->setSizeGripEnabled(false);
    controls.Messages = makePanel("Messages"_L1);
    // a long message must not widen the window
    controls.Messages->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    controls.StatusBar1->addWidget(controls.Messages, 1);

    controls.Progress = named(new QProgressBar, "Progress"_L1);
    controls.Progress->setRange(0, 100);
    controls.Progress->setMaximumSize(160, controls.Messages->sizeHint().height());
    controls.Progress->hide();
    controls.StatusBar1->addWidget(controls.Progress);

    controls.SelText = makePanel("SelText"_L1);
    controls.StatusBar1->addPermanentWidget(controls.SelText);
}

} // namespace

FormControls makeFormControls(QWidget &inner)
{
    FormControls controls{};
    makeToolbars(inner, controls);
    makePanes(inner, controls);
    makeStatusBar(inner, controls);

    const std::initializer_list<QWidget *> textControls = {
        controls.cboModeName,     controls.cboFontName,       controls.cboFontSize,
        controls.lblRomanCaption, controls.lblTengwarCaption, controls.Messages,
        controls.SelText};
    for (QWidget *control : textControls)
        control->setProperty("Tag", QStringLiteral("text"));
    return controls;
}
