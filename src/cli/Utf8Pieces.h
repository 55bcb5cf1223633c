#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

/// Turns UTF-8 that comes in pieces into text, and finds the first byte that is not UTF-8.
class Utf8Pieces
{
public:
    /// The text of the bytes up to the last whole character; up to the fault if there is one. A
    /// byte order mark at the start is dropped.
    [[nodiscard]] QString feed(QByteArrayView bytes);
    /// Call it after the last piece: a character that is cut short is a fault too.
    void finish();

    /// Offset, in bytes from the start, of the first sequence that is not UTF-8.
    [[nodiscard]] std::optional<qint64> fault() const noexcept { return fault_; }

private:
    QByteArray pending_;
    qint64 offset_ = 0; ///< of the first pending byte
    std::optional<qint64> fault_;
};
