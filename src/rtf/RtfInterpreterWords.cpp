#include "rtf/RtfInterpreter.h"

#include <algorithm>

// What each control word does to the interpreter's state.

namespace {

constexpr int twipsPerHalfPoint = 10;

int clampedTwips(int twips)
{
    return std::clamp(twips, -RtfLimits::twips, RtfLimits::twips);
}

} // namespace

void RtfInterpreter::word(const RtfToken &token)
{
    flushBytes();
    pushPendingGroups();
    if (const RtfControlWord *found = findRtfControlWord(token.text)) {
        group_.starred = false;
        known(*found, token);
    } else if (group_.starred) {
        skipGroup();
    }
}

void RtfInterpreter::known(const RtfControlWord &word, const RtfToken &token)
{
    const bool on = !token.hasParameter || token.parameter != 0;
    switch (word.kind) {
    case RtfWordKind::Known:
        break;
    case RtfWordKind::Skip:
        skipGroup();
        break;
    case RtfWordKind::Destination:
        enter(static_cast<RtfDestination>(word.value));
        break;
    case RtfWordKind::Document:
        documentWord(static_cast<RtfDocumentWord>(word.value), token.parameter);
        break;
    case RtfWordKind::Unicode:
        unicodeWord(static_cast<RtfUnicodeWord>(word.value), token);
        break;
    case RtfWordKind::Style:
        group_.character.styles.setFlag(static_cast<CharacterStyle>(word.value), on);
        break;
    case RtfWordKind::Character:
        characterWord(static_cast<RtfCharacterWord>(word.value), token);
        break;
    case RtfWordKind::Paragraph:
        paragraphWord(static_cast<RtfParagraphWord>(word.value), token.parameter);
        break;
    case RtfWordKind::Alignment:
        group_.paragraph.format.alignment = static_cast<Qt::AlignmentFlag>(word.value);
        group_.flow->changeParagraph(group_.paragraph);
        break;
    case RtfWordKind::TabType:
        tabType_ = static_cast<QTextOption::TabType>(word.value);
        break;
    case RtfWordKind::Text:
        static_cast<void>(isFallback());
        character(static_cast<char16_t>(word.value));
        break;
    case RtfWordKind::Structure:
        static_cast<void>(isFallback());
        structureWord(static_cast<RtfStructureWord>(word.value));
        break;
    case RtfWordKind::Table:
        tableWord(static_cast<RtfTableWord>(word.value), token.parameter);
        break;
    }
}

void RtfInterpreter::symbol(uchar symbol)
{
    pushPendingGroups();
    if (symbol == '*') {
        group_.starred = true;
        return;
    }
    const bool isParagraphEnd = symbol == '\r' || symbol == '\n';
    if (isFallback() && !isParagraphEnd)
        return;
    switch (symbol) {
    case '\\':
    case '{':
    case '}':
        textByte(symbol);
        return;
    default:
        flushBytes();
    }
    switch (symbol) {
    case '~':
        character(QChar::Nbsp);
        break;
    case '_':
        character(0x2011);
        break;
    case '-':
        character(QChar::SoftHyphen);
        break;
    case '\t':
        character(u'\t');
        break;
    case '\r':
    case '\n':
        structureWord(RtfStructureWord::Paragraph);
        break;
    default:
        break;
    }
}

void RtfInterpreter::enter(RtfDestination destination)
{
    switch (destination) {
    case RtfDestination::FieldResult:
        fieldHasResult_ = true;
        group_.destination = group_.outside;
        break;
    case RtfDestination::UnicodeOfPair:
        group_.destination = group_.outside;
        break;
    case RtfDestination::FieldInstruction:
        group_.destination = destination;
        group_.outside = destination; // the results of fields within are no text
        break;
    case RtfDestination::Field:
    case RtfDestination::UnicodePair:
    case RtfDestination::TextBox:
    case RtfDestination::Footnote:
    case RtfDestination::Label:
        if (group_.destination == RtfDestination::Body)
            enterBody(destination);
        break;
    default:
        group_.destination = destination;
        break;
    }
}

void RtfInterpreter::enterBody(RtfDestination destination)
{
    switch (destination) {
    case RtfDestination::TextBox:
        enterAside(boxes_);
        break;
    case RtfDestination::Footnote:
        enterAside(notes_);
        break;
    case RtfDestination::Field:
        fieldHasResult_ = false;
        fieldInstruction_.clear();
        [[fallthrough]];
    default:
        group_.outside = group_.destination;
        group_.destination = destination;
        break;
    }
}

void RtfInterpreter::enterAside(RtfFlow &flow)
{
    if (group_.flow == &body_)
        group_.flow = &flow;
    else
        group_.flow->endSection(group_.character, group_.paragraph); // an aside within an aside
    group_.paragraph = {};
}

void RtfInterpreter::documentWord(RtfDocumentWord word, int parameter)
{
    switch (word) {
    case RtfDocumentWord::Ansi:
        documentCodePage_ = RtfCodePage::latin;
        break;
    case RtfDocumentWord::Mac:
        documentCodePage_ = RtfCodePage::macRoman;
        break;
    case RtfDocumentWord::Pc:
        documentCodePage_ = 437;
        break;
    case RtfDocumentWord::Pca:
        documentCodePage_ = 850;
        break;
    case RtfDocumentWord::CodePage: {
        constexpr int utf16 = 1200; // no page of bytes
        documentCodePage_ = parameter <= 1 || parameter == utf16 ? RtfCodePage::latin : parameter;
        break;
    }
    case RtfDocumentWord::DefaultFont:
        defaultFont_ = parameter;
        return;
    }
    group_.codePage = documentCodePage_;
}

void RtfInterpreter::unicodeWord(RtfUnicodeWord word, const RtfToken &token)
{
    if (word == RtfUnicodeWord::FallbackUnits) {
        group_.fallbackUnits =
            token.hasParameter ? std::clamp(token.parameter, 0, RtfLimits::fallbackUnits) : 1;
        return;
    }
    if (!token.hasParameter)
        return;
    codePoint(token.parameter);
    fallbackLeft_ = group_.fallbackUnits;
}

void RtfInterpreter::resetCharacter()
{
    group_.character = {};
    setFont(noFont);
}

void RtfInterpreter::setFont(int number)
{
    const RtfFont &font = fonts_.font(number, defaultFont_.value_or(fonts_.firstNumber()));
    group_.fontNumber = number;
    group_.character.family = font.name;
    group_.character.charset = font.charset;
    group_.codePage = font.codePage.value_or(documentCodePage_);
}

void RtfInterpreter::characterWord(RtfCharacterWord word, const RtfToken &token)
{
    constexpr int defaultSize = 24;
    constexpr int defaultOffset = 6;
    const int number = token.parameter;
    CharacterFormat &format = group_.character;
    const int offset = std::clamp(token.hasParameter ? number : defaultOffset,
                                  -RtfLimits::halfPoints, RtfLimits::halfPoints);
    const bool on = !token.hasParameter || number != 0;
    switch (word) {
    case RtfCharacterWord::Plain:
        resetCharacter();
        break;
    case RtfCharacterWord::Font:
        if (group_.destination == RtfDestination::FontTable)
            fonts_.begin(number);
        else
            setFont(number);
        break;
    case RtfCharacterWord::Size:
        format.halfPoints = number > 0 ? std::min(number, RtfLimits::halfPoints) : defaultSize;
        break;
    case RtfCharacterWord::Colour:
        format.colour = colours_.colour(number);
        break;
    case RtfCharacterWord::Raise:
        format.offset = clampedTwips(offset * twipsPerHalfPoint);
        break;
    case RtfCharacterWord::Lower:
        format.offset = clampedTwips(-offset * twipsPerHalfPoint);
        break;
    case RtfCharacterWord::Superscript:
        format.script = on ? Script::Superscript : Script::Baseline;
        break;
    case RtfCharacterWord::Subscript:
        format.script = on ? Script::Subscript : Script::Baseline;
        break;
    case RtfCharacterWord::NoScript:
        format.script = Script::Baseline;
        break;
    case RtfCharacterWord::NoUnderline:
        format.styles.setFlag(CharacterStyle::Underline, false);
        break;
    }
}

void RtfInterpreter::paragraphWord(RtfParagraphWord word, int parameter)
{
    ParagraphFormat &format = group_.paragraph.format;
    const int twips = clampedTwips(parameter);
    switch (word) {
    case RtfParagraphWord::Defaults:
        group_.paragraph = {};
        break;
    case RtfParagraphWord::Left:
        format.left = twips;
        break;
    case RtfParagraphWord::FirstLine:
        format.firstLine = twips;
        break;
    case RtfParagraphWord::Right:
        format.right = twips;
        break;
    case RtfParagraphWord::SpaceBefore:
        format.spaceBefore = std::max(0, twips);
        break;
    case RtfParagraphWord::SpaceAfter:
        format.spaceAfter = std::max(0, twips);
        break;
    case RtfParagraphWord::TabStop:
        if (format.tabs.size() < RtfLimits::tabStops)
            format.tabs.append({twips, tabType_});
        tabType_ = QTextOption::LeftTab;
        break;
    case RtfParagraphWord::InTable:
        group_.paragraph.inTable = true;
        group_.flow->startRow();
        break;
    case RtfParagraphWord::List:
        if (group_.destination == RtfDestination::ListOverrideTable)
            lists_.nameOverride(parameter);
        setList(parameter, group_.paragraph.listLevel);
        break;
    case RtfParagraphWord::ListLevel:
        setList(group_.paragraph.list, parameter);
        break;
    }
    if (group_.destination == RtfDestination::Body)
        group_.flow->changeParagraph(group_.paragraph);
}

void RtfInterpreter::setList(int list, int level)
{
    group_.paragraph.list = list;
    group_.paragraph.listLevel = level;
    if (const std::optional<bool> bullet = lists_.isBullet(list, level))
        group_.paragraph.format.bullet = *bullet;
}

void RtfInterpreter::structureWord(RtfStructureWord word)
{
    if (group_.destination != RtfDestination::Body)
        return;
    flushSurrogate();
    RtfFlow &flow = *group_.flow;
    switch (word) {
    case RtfStructureWord::Paragraph:
        flow.endParagraph(group_.character, group_.paragraph);
        break;
    case RtfStructureWord::Section:
        flow.endSection(group_.character, group_.paragraph);
        break;
    case RtfStructureWord::Cell:
        flow.endCell(group_.paragraph);
        break;
    case RtfStructureWord::Row:
        flow.endRow(group_.character, group_.paragraph);
        break;
    case RtfStructureWord::NestedRow:
        flow.endNestedRow(group_.character, group_.paragraph);
        break;
    case RtfStructureWord::TableRow:
        flow.startRow();
        break;
    case RtfStructureWord::FootnoteMark:
        footnoteMark();
        break;
    }
}

void RtfInterpreter::footnoteMark()
{
    if (group_.flow != &notes_)
        ++footnotes_;
    deliver(QString::number(footnotes_));
}

void RtfInterpreter::tableWord(RtfTableWord word, int parameter)
{
    switch (group_.destination) {
    case RtfDestination::FontTable:
        if (word == RtfTableWord::FontCharset)
            fonts_.setCharset(parameter);
        else if (word == RtfTableWord::FontCodePage)
            fonts_.setCodePage(parameter);
        break;
    case RtfDestination::ColourTable:
        colours_.set(word, parameter);
        break;
    case RtfDestination::ListTable:
        lists_.word(word, parameter);
        break;
    case RtfDestination::ListOverrideTable:
        lists_.overrideWord(word, parameter);
        break;
    case RtfDestination::OldBullet:
        oldBulletWord(word, parameter);
        break;
    default:
        break;
    }
}

void RtfInterpreter::oldBulletWord(RtfTableWord word, int parameter)
{
    RtfParagraphState &paragraph = group_.paragraph;
    if (word == RtfTableWord::OldBulletMark) {
        paragraph.format.bullet = true;
    } else if (word == RtfTableWord::OldNumber) {
        paragraph.format.bullet = false;
    } else if (word == RtfTableWord::OldIndent) {
        paragraph.format.bulletIndent = clampedTwips(parameter);
        paragraph.hasBulletIndent = true;
    }
}

void RtfInterpreter::fieldSymbol()
{
    const QStringList words = fieldInstruction_.simplified().split(u' ');
    if (words.size() < 2 || words[0].compare(QLatin1StringView("SYMBOL"), Qt::CaseInsensitive) != 0)
        return;
    bool isNumber = false;
    const int number = words[1].toInt(&isNumber, 0);
    if (!isNumber || number <= 0)
        return;
    const CharacterFormat before = group_.character;
    const qsizetype fontSwitch = words.indexOf(QLatin1StringView("\\f"));
    if (fontSwitch >= 0 && fontSwitch + 1 < words.size()) {
        const QString rest = words.mid(fontSwitch + 1).join(u' ');
        group_.character.family =
            rest.startsWith(u'"') ? rest.section(u'"', 1, 1) : words[fontSwitch + 1];
        group_.character.charset = 2;
    }
    const bool isByte = number <= 0xFF;
    if (isByte && group_.character.isSymbolFont())
        codePoint(0xF000 + number);
    else if (isByte)
        character(RtfCodePage::latinCharacter(static_cast<uchar>(number)));
    else
        codePoint(number);
    group_.character = before;
}
