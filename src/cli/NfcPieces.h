#pragma once

#include <QString>

/// Composes text that comes in pieces (Unicode normalization form C): a base letter and the
/// combining marks after it become one character where there is one, also across a cut.
class NfcPieces
{
public:
    /// The composed text as far as no later piece can change it.
    [[nodiscard]] QString feed(QStringView piece);
    /// What is left after the last piece.
    [[nodiscard]] QString finish();

private:
    QString pending_;
};
