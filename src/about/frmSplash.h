#pragma once

#include <QFrame>

/// Shows the program's name and version while it starts. It stays up as long as it exists.
class frmSplash final : public QFrame
{
    Q_OBJECT

public:
    frmSplash();
};
