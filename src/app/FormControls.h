#pragma once

#include <QLabel>
#include <QProgressBar>
#include <QStatusBar>
#include <QToolBar>

class CaptionLabel;
class RichTextBox;
class Splitter;
class ToolbarCombo;

/// The controls of the main window, each under its own name; the window owns them.
struct FormControls
{
    QToolBar *Toolbar1;
    QToolBar *tbrFormat;
    ToolbarCombo *cboModeName;
    ToolbarCombo *cboFontName;
    ToolbarCombo *cboFontSize;
    CaptionLabel *lblRomanCaption;
    CaptionLabel *lblTengwarCaption;
    RichTextBox *rtbRoman;
    RichTextBox *rtbTengwar;
    QFrame *fraRuler;
    Splitter *imgRuler;
    QStatusBar *StatusBar1;
    QLabel *Messages;
    QLabel *SelText;
    QProgressBar *Progress;
};

/// Makes the controls as children of the window's inner area. Toolbar buttons have no commands yet.
[[nodiscard]] FormControls makeFormControls(QWidget &inner);
