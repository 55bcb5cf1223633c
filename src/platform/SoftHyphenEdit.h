#pragma once

#include <QString>

class QLineEdit;

/// Shows every U+00AD of a line edit, which can draw nothing in its place, as U+F0AD: there symbol
/// fonts have the same sign, and other Tengwar fonts do too. In a font that hasn't it, U+00AD stays
/// and is invisible. What is copied out of the line edit has U+00AD again; its text is to be read
/// by heldText.
void showSoftHyphens(QLineEdit &edit);

/// The text that the line edit stands for.
[[nodiscard]] QString heldText(const QLineEdit &edit);
