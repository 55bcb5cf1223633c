#include "rtf/RtfFlow.h"

#include <algorithm>
#include <utility>

namespace {

constexpr QChar lineBreak = QChar::LineSeparator;

/// A label as it stands within a cell, where tabs separate cells and no symbol font is needed.
QString labelInCell(QString label)
{
    constexpr QChar symbolBullet(0xF0B7);
    return label.replace(u'\t', u' ').replace(symbolBullet, QChar(0x2022));
}

} // namespace

void RtfFlow::append(QStringView text, const CharacterFormat &format)
{
    paragraph_.text.append(text);
    characters_ += text.size();
    if (paragraph_.runs.empty() || paragraph_.runs.back().format != format) {
        paragraph_.runs.push_back({0, format});
        ++runs_;
    }
    paragraph_.runs.back().end = paragraph_.text.size();
}

void RtfFlow::begin(const CharacterFormat &format, const RtfParagraphState &state)
{
    const bool rowLeftOpen = cells_ > 0 && rowInTable_ && !state.inTable;
    if (rowLeftOpen)
        endRow(format, state);
    if (cells_ == 0)
        state_ = state;
    started_ = true;
    if (pendingTabs_ > 0)
        append(QString(std::exchange(pendingTabs_, 0), u'\t'), format);
    if (!label_.isEmpty())
        placeLabel(state);
}

void RtfFlow::addText(QStringView text, const CharacterFormat &format,
                      const RtfParagraphState &state)
{
    begin(format, state);
    append(text, format);
}

void RtfFlow::addLabel(QStringView text, const CharacterFormat &format)
{
    constexpr qsizetype longest = 100; // whatever is longer is no label
    label_.append(text.first(std::min(text.size(), longest - std::min(longest, label_.size()))));
    labelFormat_ = format;
}

void RtfFlow::placeLabel(const RtfParagraphState &state)
{
    const QString label = std::exchange(label_, {});
    const bool inCell = rowOpen_ && state.inTable;
    if (inCell)
        append(labelInCell(label), labelFormat_);
    else if (!state.format.bullet)
        append(label, labelFormat_);
}

void RtfFlow::changeParagraph(const RtfParagraphState &state)
{
    if (started_ && cells_ == 0)
        state_ = state;
}

void RtfFlow::endParagraph(const CharacterFormat &mark, const RtfParagraphState &state)
{
    const bool inCell = rowOpen_ && state.inTable;
    if (inCell)
        addText(QStringView(&lineBreak, 1), mark, state);
    else
        emitParagraph(mark, state);
}

void RtfFlow::endSection(const CharacterFormat &mark, const RtfParagraphState &state)
{
    if (started_)
        emitParagraph(mark, state);
}

void RtfFlow::endCell(const RtfParagraphState &state)
{
    if (!started_)
        state_ = state;
    started_ = true;
    rowInTable_ |= state.inTable;
    ++cells_;
    ++pendingTabs_;
}

void RtfFlow::endRow(const CharacterFormat &mark, const RtfParagraphState &state)
{
    if (started_)
        emitParagraph(mark, state);
    rowOpen_ = false;
}

void RtfFlow::endNestedRow(const CharacterFormat &format, const RtfParagraphState &state)
{
    if (pendingTabs_ > 0)
        --pendingTabs_;
    addText(QStringView(&lineBreak, 1), format, state);
}

void RtfFlow::finish(const CharacterFormat &mark, const RtfParagraphState &state)
{
    if (started_ || paragraphs_ == 0)
        emitParagraph(mark, state);
}

void RtfFlow::emitParagraph(const CharacterFormat &mark, const RtfParagraphState &state)
{
    if (!started_)
        state_ = state;
    if (pendingTabs_ > 1) // the last cell of a row needs no tab
        append(QString(pendingTabs_ - 1, u'\t'), mark);
    if (!label_.isEmpty())
        placeLabel(state_);
    paragraph_.format = state_.format;
    if (cells_ > 0)
        paragraph_.format.bullet = false;
    if (paragraph_.format.bullet && !state_.hasBulletIndent)
        paragraph_.format.bulletIndent = std::max(0, -paragraph_.format.firstLine);
    paragraph_.mark = mark;
    ++paragraphs_;
    sink_.paragraph(paragraph_);
    paragraph_.text.resize(0);
    paragraph_.runs.clear();
    started_ = false;
    rowInTable_ = false;
    cells_ = 0;
    pendingTabs_ = 0;
}
