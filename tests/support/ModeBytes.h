#pragma once

#include "engine/LoadMode.h"

#include <QByteArray>

/// Builds the bytes of mode files, also of broken ones, record by record.
class ModeBytes
{
public:
    explicit ModeBytes(const QByteArray &header = "Test mode\t0") { add(header); }

    /// Adds a record as it stands, padded with `padding` to its length.
    ModeBytes &add(const QByteArray &record, char padding = ' ')
    {
        bytes_ += record.leftJustified(RuleRecordLength, padding, true);
        return *this;
    }

    /// Adds a rule; the texts are code page bytes.
    ModeBytes &rule(const QByteArray &roman, const QByteArray &tengwar,
                    const QByteArray &following = {}, const QByteArray &preceding = {},
                    const QByteArray &leaves = {})
    {
        return add(roman + '\t' + tengwar + '\t' + following + '\t' + preceding + '\t' + leaves +
                   '\t');
    }

    [[nodiscard]] const QByteArray &bytes() const { return bytes_; }

private:
    QByteArray bytes_;
};
