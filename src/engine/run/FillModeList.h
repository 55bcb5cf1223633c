#pragma once

class QComboBox;
class QListWidget;
struct Settings;

/// Fills a list with the names of the modes in the folder ModePath, in the order of their names
/// (folders have none of their own), and selects CurrentMode. Where modes are found but CurrentMode
/// is not among them, CurrentMode becomes empty; where none is found it stays.
void FillModeList(QComboBox &list, Settings &settings);
void FillModeList(QListWidget &list, Settings &settings);
