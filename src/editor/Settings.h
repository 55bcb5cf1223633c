#pragma once

#include <QString>

/// The settings in memory. Start-up reads them once; only the preferences dialog, the choice of a
/// mode and the search for the mode editor change them while the program runs.
struct Settings
{
    QString GenericRomanFont;   ///< font of all controls tagged "text"
    QString GenericTengwarFont; ///< font of all controls tagged "tengwar"
    QString CurrentMode;        ///< name of the chosen mode; empty if none is chosen
    QString ModePath;           ///< folder of the modes, without a separator at its end
    bool UndefinedAlert = false;
    QString UndefinedText; ///< stands for a character that no rule covers; empty to skip it
    bool ClearTargetPane = false;
    QString StandardUnit;  ///< "mm", "cm", "in", "pt" or "px"
    double UnitFactor = 0; ///< twips to one StandardUnit
    QString EditorPath;    ///< full name of the mode editor's program file
};
