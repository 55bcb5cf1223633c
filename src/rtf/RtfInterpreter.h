#pragma once

#include "rtf/RtfCodePages.h"
#include "rtf/RtfControlWords.h"
#include "rtf/RtfError.h"
#include "rtf/RtfFlow.h"
#include "rtf/RtfTables.h"
#include "rtf/RtfTokenizer.h"
#include <QByteArray>
#include <vector>

/// Follows the tokens of an RTF file and gives its paragraphs to a sink.
///
/// Each brace pushes or pops one RtfGroup; deeper than RtfLimits::groupDepth it is only counted.
/// Bytes of text are gathered until something else comes, then decoded by the current font's code
/// page: a character of two bytes may arrive in any mixture of forms.
class RtfInterpreter
{
public:
    RtfInterpreter(QByteArrayView bytes, RtfSink &sink);

    /// Reads the whole file. Gives an error if it holds more than RtfLimits allows; what came
    /// before has then reached the sink.
    [[nodiscard]] std::optional<RtfError> run();

private:
    static constexpr int noFont = -1; ///< stands for the document's default

    struct Group
    {
        CharacterFormat character;
        RtfParagraphState paragraph;
        RtfFlow *flow = nullptr;
        RtfDestination destination = RtfDestination::Body;
        RtfDestination outside = RtfDestination::Body; ///< of the innermost \field or \upr
        bool starred = false; ///< an unknown control word makes the rest of the group unread
        int fontNumber = noFont;
        int codePage = RtfCodePage::latin;
        int fallbackUnits = 1; ///< \uc
    };

    /// Takes the body's paragraphs; text boxes follow the paragraph that they stood in.
    struct BodySink final : RtfSink
    {
        explicit BodySink(RtfInterpreter &owner) : interpreter(owner) {}
        void paragraph(const RtfParagraph &paragraph) override;
        RtfInterpreter &interpreter;
    };

    struct ParagraphStore final : RtfSink
    {
        void paragraph(const RtfParagraph &paragraph) override { paragraphs.push_back(paragraph); }
        void moveTo(RtfSink &sink);
        std::vector<RtfParagraph> paragraphs;
    };

    void take(const RtfToken &token);
    void endGroup();
    void pushPendingGroups();
    void leave(const Group &ended);
    void skipGroup();
    void finish();
    [[nodiscard]] bool isOverLimits() const;

    void word(const RtfToken &token);
    void known(const RtfControlWord &word, const RtfToken &token);
    void symbol(uchar symbol);
    void enter(RtfDestination destination);
    void enterAside(RtfFlow &flow);
    void enterBody(RtfDestination destination);
    void documentWord(RtfDocumentWord word, int parameter);
    void unicodeWord(RtfUnicodeWord word, const RtfToken &token);
    void characterWord(RtfCharacterWord word, const RtfToken &token);
    void paragraphWord(RtfParagraphWord word, int parameter);
    void setStyle(CharacterStyle style, bool on);
    void structureWord(RtfStructureWord word);
    void footnoteMark();
    void tableWord(RtfTableWord word, int parameter);
    void oldBulletWord(RtfTableWord word, int parameter);
    void setFont(int number);
    void setList(int list, int level);
    void resetCharacter();

    [[nodiscard]] bool isFallback();
    [[nodiscard]] bool readsText() const;
    void textBytes(std::string_view bytes);
    void asciiText(std::string_view text);
    void gatherBytes(std::string_view bytes);
    void textByte(uchar byte);
    void codePoint(int number);
    void codeUnit(char16_t unit);
    void character(char16_t character);
    void flushBytes();
    void flushSurrogate();
    void deliver(QStringView text);
    void deliverBody(QStringView text);
    void fieldSymbol();
    [[nodiscard]] int codePageNow() const;

    RtfTokenizer tokenizer_;
    RtfSink &sink_;
    RtfDecoder decoder_;
    RtfFontTable fonts_;
    RtfColourTable colours_;
    RtfListTable lists_;

    BodySink bodySink_;
    ParagraphStore boxParagraphs_;
    ParagraphStore noteParagraphs_;
    RtfFlow body_;
    RtfFlow boxes_;
    RtfFlow notes_;

    Group group_; ///< the innermost
    std::vector<Group> outer_;
    qsizetype pendingGroups_ = 0;  ///< begun, and nothing came in them yet
    qsizetype uncountedDepth_ = 0; ///< begun beyond the depth limit
    bool ended_ = false;

    int documentCodePage_ = RtfCodePage::latin;
    std::optional<int> defaultFont_;
    QByteArray bytes_;           ///< text not yet decoded
    char16_t highSurrogate_ = 0; ///< waits for its other half
    int fallbackLeft_ = 0;       ///< units still to be skipped after a \u
    QTextOption::TabType tabType_ = QTextOption::LeftTab;
    int footnotes_ = 0;
    QString fieldInstruction_;
    bool fieldHasResult_ = false;
};
