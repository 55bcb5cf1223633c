#pragma once

#include "rtf/RtfFlow.h"
#include <QHash>
#include <QTextCursor>
#include <QTextFormat>

class QTextDocument;

/// Fills an empty QTextDocument with paragraphs, in one edit block.
class RtfDocumentBuilder final : public RtfSink
{
public:
    explicit RtfDocumentBuilder(QTextDocument &document);
    ~RtfDocumentBuilder() override;
    Q_DISABLE_COPY_MOVE(RtfDocumentBuilder)

    void paragraph(const RtfParagraph &paragraph) override;

private:
    [[nodiscard]] const QTextCharFormat &characterFormat(const CharacterFormat &format);
    void startBlock(const RtfParagraph &paragraph);

    QTextCursor cursor_;
    QHash<CharacterFormat, QTextCharFormat> characterFormats_;
    ParagraphFormat paragraphFormat_; ///< that `blockFormat_` stands for
    QTextBlockFormat blockFormat_;
    QTextList *bulletList_ = nullptr; ///< the last one made; the document owns it
    bool isFirst_ = true;
};
