#pragma once

#include "rtf/RtfFormat.h"
#include <QString>
#include <vector>

/// A paragraph as read. Its text holds U+2028 for soft line breaks and U+000C for page breaks.
struct RtfParagraph
{
    struct Run
    {
        qsizetype end = 0; ///< in `text`
        CharacterFormat format;
    };

    ParagraphFormat format;
    CharacterFormat mark; ///< of the paragraph's end
    QString text;
    std::vector<Run> runs;
};

/// What takes a document's paragraphs, in order.
class RtfSink
{
public:
    RtfSink() = default;
    virtual ~RtfSink() = default;
    Q_DISABLE_COPY_MOVE(RtfSink)

    virtual void paragraph(const RtfParagraph &paragraph) = 0;
};

/// What a paragraph of RTF knows of itself besides its format.
struct RtfParagraphState
{
    ParagraphFormat format;
    int list = 0;      ///< \ls
    int listLevel = 0; ///< \ilvl
    bool inTable = false;
    bool hasBulletIndent = false; ///< format.bulletIndent was given, else it follows the first line
};

/// Makes paragraphs of one stream of text: the body's, a text box's or that of the footnotes.
///
/// A row of a table becomes one paragraph, its cells separated by tabs, the paragraphs within a
/// cell by soft line breaks. A list's label becomes text unless its paragraph has a bullet.
class RtfFlow
{
public:
    explicit RtfFlow(RtfSink &sink) : sink_(sink) {}

    /// Adds text without control codes, except tabs and page breaks.
    void addText(QStringView text, const CharacterFormat &format, const RtfParagraphState &state);
    void addLabel(QStringView text, const CharacterFormat &format);

    /// Paragraph attributes count for the text before them too.
    void changeParagraph(const RtfParagraphState &state);

    void endParagraph(const CharacterFormat &mark, const RtfParagraphState &state);
    /// Ends the paragraph if it has text.
    void endSection(const CharacterFormat &mark, const RtfParagraphState &state);
    void startRow() { rowOpen_ = true; }
    void endCell(const RtfParagraphState &state);
    void endRow(const CharacterFormat &mark, const RtfParagraphState &state);
    void endNestedRow(const CharacterFormat &format, const RtfParagraphState &state);

    /// Ends the last paragraph if it has text or is the only one.
    void finish(const CharacterFormat &mark, const RtfParagraphState &state);

    /// Paragraphs and runs of one format so far.
    [[nodiscard]] qint64 pieces() const { return paragraphs_ + runs_; }

    [[nodiscard]] qint64 characters() const { return characters_; }

private:
    void append(QStringView text, const CharacterFormat &format);
    void begin(const CharacterFormat &format, const RtfParagraphState &state);
    void placeLabel(const RtfParagraphState &state);
    void emitParagraph(const CharacterFormat &mark, const RtfParagraphState &state);

    RtfSink &sink_;
    RtfParagraph paragraph_;
    RtfParagraphState state_; ///< as it was when the paragraph's text came, or later
    bool started_ = false;    ///< the paragraph has text, or cells
    bool rowOpen_ = false;
    bool rowInTable_ = false; ///< the row's cells are said to be a table's
    int cells_ = 0;           ///< of the row so far
    int pendingTabs_ = 0;     ///< for the cells that ended since the last text
    QString label_;
    CharacterFormat labelFormat_;
    qint64 paragraphs_ = 0;
    qint64 runs_ = 0;
    qint64 characters_ = 0;
};
