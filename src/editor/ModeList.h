#pragma once

class QComboBox;

/// Knows which modes there are.
class ModeList
{
public:
    virtual ~ModeList() = default;

    /// Fills the list with the names of all modes and selects the current one.
    virtual void FillModeList(QComboBox &list) = 0;
};
