#pragma once

#include "rtf/RtfFlow.h"

/// Appends a document's paragraphs to a plain text; see readRtfText.
class RtfTextBuilder final : public RtfSink
{
public:
    explicit RtfTextBuilder(QString &text) : text_(text) {}

    void paragraph(const RtfParagraph &paragraph) override;

private:
    QString &text_;
    bool isFirst_ = true;
};
