#pragma once

#include <QIcon>
#include <QString>

/// An icon from an SVG file drawn in the one ink #000000. It is drawn when it is first shown, sharp
/// at every size and scale, in the text colour of the palette of that moment.
[[nodiscard]] QIcon inkIcon(const QString &file);
