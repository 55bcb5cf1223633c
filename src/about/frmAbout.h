#pragma once

#include <QDialog>

class RegistryFunctions;
struct Settings;

/// The box that tells the program's name, version and copyright.
class frmAbout final : public QDialog
{
    Q_OBJECT

public:
    /// `registry` tells where the system's own information program is; it must outlive the box.
    frmAbout(const Settings &settings, const RegistryFunctions &registry, QWidget *parent);
};
