#pragma once

#include <QStringList>

/// The order in which fonts are listed: the interface's font first, the others by name without
/// regard to case, fonts of the program's own last. What falls back on the first font thus lands
/// on something readable, and what takes the last match prefers our own. Names are listed once.
///
/// `interfaceFont` and `ownFonts` are moved only where they are among `installed`.
[[nodiscard]] QStringList fontListOrder(QStringList installed, const QString &interfaceFont,
                                        const QStringList &ownFonts);

/// Makes the fonts in a folder known to this program, without installing them, and returns their
/// names. Needs a running QGuiApplication.
[[nodiscard]] QStringList registerFonts(const QString &folder);

/// The scalable and bitmap fonts that can be chosen for text, in that order. Needs a running
/// QGuiApplication.
[[nodiscard]] QStringList installedFonts(const QStringList &ownFonts);
