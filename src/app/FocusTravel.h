#pragma once

class Form1;

/// F6 leads from the panes to the lists of the toolbars, one after the other, to the splitter, and
/// back to the active pane; Shift+F6 goes the other way round. Lists that are not shown are passed
/// over.
void connectFocusTravel(Form1 &form);
