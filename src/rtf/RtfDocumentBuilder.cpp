#include "rtf/RtfDocumentBuilder.h"

#include <QTextDocument>
#include <QTextList>
#include <utility>

RtfDocumentBuilder::RtfDocumentBuilder(QTextDocument &document) : cursor_(&document)
{
    paragraphFormat_.applyTo(blockFormat_);
    cursor_.beginEditBlock();
}

RtfDocumentBuilder::~RtfDocumentBuilder()
{
    cursor_.endEditBlock();
}

const QTextCharFormat &RtfDocumentBuilder::characterFormat(const CharacterFormat &format)
{
    auto found = characterFormats_.find(format);
    if (found == characterFormats_.end()) {
        found = characterFormats_.insert(format, {});
        format.applyTo(*found);
    }
    return *found;
}

void RtfDocumentBuilder::startBlock(const RtfParagraph &paragraph)
{
    if (paragraph.format != paragraphFormat_) {
        paragraphFormat_ = paragraph.format;
        blockFormat_ = {};
        paragraphFormat_.applyTo(blockFormat_);
    }
    const QTextCharFormat &mark = characterFormat(paragraph.mark);
    if (std::exchange(isFirst_, false)) {
        cursor_.setBlockFormat(blockFormat_);
        cursor_.setBlockCharFormat(mark);
    } else {
        cursor_.insertBlock(blockFormat_, mark);
    }
    if (paragraphFormat_.bullet)
        bulletList_ = drawBullet(cursor_, bulletList_);
}

void RtfDocumentBuilder::paragraph(const RtfParagraph &paragraph)
{
    startBlock(paragraph);
    qsizetype start = 0;
    for (const RtfParagraph::Run &run : paragraph.runs) {
        cursor_.insertText(paragraph.text.sliced(start, run.end - start),
                           characterFormat(run.format));
        start = run.end;
    }
}
