#include "rtf/RtfInterpreter.h"

#include <algorithm>
#include <utility>

RtfInterpreter::RtfInterpreter(QByteArrayView bytes, RtfSink &sink)
    : tokenizer_(bytes), sink_(sink), bodySink_(*this), body_(bodySink_), boxes_(boxParagraphs_),
      notes_(noteParagraphs_)
{
    group_.flow = &body_;
    resetCharacter();
}

void RtfInterpreter::BodySink::paragraph(const RtfParagraph &paragraph)
{
    interpreter.sink_.paragraph(paragraph);
    interpreter.boxParagraphs_.moveTo(interpreter.sink_);
}

void RtfInterpreter::ParagraphStore::moveTo(RtfSink &sink)
{
    for (const RtfParagraph &stored : std::exchange(paragraphs, {}))
        sink.paragraph(stored);
}

std::optional<RtfError> RtfInterpreter::run()
{
    while (!ended_) {
        const RtfToken token = tokenizer_.next();
        if (token.kind == RtfToken::Kind::End)
            break;
        take(token);
        if (isOverLimits())
            break;
    }
    finish();
    if (isOverLimits())
        return RtfError{RtfError::What::TooLarge, tokenizer_.offset()};
    return std::nullopt;
}

bool RtfInterpreter::isOverLimits() const
{
    return body_.characters() + boxes_.characters() + notes_.characters() > RtfLimits::characters ||
           body_.pieces() + boxes_.pieces() + notes_.pieces() > RtfLimits::pieces;
}

void RtfInterpreter::finish()
{
    flushBytes();
    flushSurrogate();
    if (group_.flow != &body_)
        group_.flow->endSection(group_.character, group_.paragraph);
    body_.finish(group_.character, group_.paragraph);
    noteParagraphs_.moveTo(sink_);
}

void RtfInterpreter::take(const RtfToken &token)
{
    switch (token.kind) {
    case RtfToken::Kind::GroupStart:
        flushBytes();
        fallbackLeft_ = 0;
        ++pendingGroups_;
        break;
    case RtfToken::Kind::GroupEnd:
        flushBytes();
        fallbackLeft_ = 0;
        endGroup();
        break;
    case RtfToken::Kind::Word:
        word(token);
        break;
    case RtfToken::Kind::Symbol:
        symbol(token.byte);
        break;
    case RtfToken::Kind::HexByte:
        if (isFallback())
            fallbackLeft_ += token.hasParameter ? 0 : token.parameter; // its second digit's place
        else if (token.hasParameter)
            textByte(token.byte);
        break;
    case RtfToken::Kind::Text:
        textBytes(token.text);
        break;
    case RtfToken::Kind::Binary:
        static_cast<void>(isFallback());
        break;
    case RtfToken::Kind::End:
        break;
    }
}

void RtfInterpreter::pushPendingGroups()
{
    for (; pendingGroups_ > 0; --pendingGroups_) {
        if (static_cast<qsizetype>(outer_.size()) == RtfLimits::groupDepth) {
            uncountedDepth_ += std::exchange(pendingGroups_, 0);
            return;
        }
        outer_.push_back(group_);
        group_.starred = false;
    }
}

void RtfInterpreter::endGroup()
{
    if (pendingGroups_ > 0) {
        --pendingGroups_;
    } else if (uncountedDepth_ > 0) {
        --uncountedDepth_;
    } else if (outer_.size() > 1) {
        const Group ended = std::exchange(group_, std::move(outer_.back()));
        outer_.pop_back();
        leave(ended);
    } else {
        ended_ = !tokenizer_.hasMoreWords(); // a brace too many is overlooked while RTF follows
    }
}

void RtfInterpreter::leave(const Group &ended)
{
    if (ended.flow != group_.flow)
        ended.flow->endSection(ended.character, ended.paragraph);
    if (ended.destination == group_.destination)
        return;
    if (ended.destination == RtfDestination::FontTable) {
        setFont(group_.fontNumber);
    } else if (ended.destination == RtfDestination::OldBullet) {
        ParagraphFormat &format = group_.paragraph.format;
        format.bullet = ended.paragraph.format.bullet;
        format.bulletIndent = ended.paragraph.format.bulletIndent;
        group_.paragraph.hasBulletIndent = ended.paragraph.hasBulletIndent;
        group_.flow->changeParagraph(group_.paragraph);
    } else if (ended.destination == RtfDestination::Field && !fieldHasResult_) {
        fieldSymbol();
    }
}

void RtfInterpreter::skipGroup()
{
    const bool wholeDocument = outer_.size() <= 1 && uncountedDepth_ == 0;
    if (!wholeDocument)
        tokenizer_.skipGroup();
    group_.starred = false;
}

bool RtfInterpreter::readsText() const
{
    const bool beforeDocument = outer_.empty(); // only a byte order mark and white space are there
    if (beforeDocument)
        return false;
    switch (group_.destination) {
    case RtfDestination::Body:
    case RtfDestination::Label:
    case RtfDestination::FontTable:
    case RtfDestination::ColourTable:
    case RtfDestination::FieldInstruction:
        return true;
    default:
        return false;
    }
}

bool RtfInterpreter::isFallback()
{
    if (fallbackLeft_ == 0)
        return false;
    --fallbackLeft_;
    return true;
}

void RtfInterpreter::textBytes(std::string_view bytes)
{
    pushPendingGroups();
    const size_t skipped = std::min(bytes.size(), static_cast<size_t>(fallbackLeft_));
    bytes.remove_prefix(skipped);
    fallbackLeft_ -= static_cast<int>(skipped);
    if (bytes.empty() || !readsText())
        return;
    const bool isAscii =
        std::all_of(bytes.begin(), bytes.end(), [](char byte) { return byte >= 0; });
    if (isAscii && bytes_.isEmpty() && codePageNow() != RtfCodePage::symbol)
        asciiText(bytes);
    else
        gatherBytes(bytes);
}

void RtfInterpreter::gatherBytes(std::string_view bytes)
{
    constexpr size_t most = 1 << 20; // no character of two bytes need survive beyond
    while (!bytes.empty() && !isOverLimits()) {
        const size_t size = std::min(bytes.size(), most);
        bytes_.append(bytes.data(), static_cast<qsizetype>(size));
        bytes.remove_prefix(size);
        if (static_cast<size_t>(bytes_.size()) >= most)
            flushBytes();
    }
}

void RtfInterpreter::asciiText(std::string_view text)
{
    std::array<char16_t, 4096> piece{};
    while (!text.empty() && !isOverLimits()) {
        const size_t size = std::min(text.size(), piece.size());
        std::copy_n(text.begin(), size, piece.begin());
        deliver(QStringView(piece.data(), static_cast<qsizetype>(size)));
        text.remove_prefix(size);
    }
}

void RtfInterpreter::textByte(uchar byte)
{
    pushPendingGroups();
    const char asText = static_cast<char>(byte);
    if (readsText())
        gatherBytes({&asText, 1});
}

int RtfInterpreter::codePageNow() const
{
    const int ofEntry = fonts_.codePageOfEntry().value_or(documentCodePage_);
    switch (group_.destination) {
    case RtfDestination::Body:
    case RtfDestination::Label:
        return group_.codePage;
    case RtfDestination::FontTable:
        return ofEntry == RtfCodePage::symbol ? documentCodePage_ : ofEntry;
    default:
        return documentCodePage_;
    }
}

void RtfInterpreter::flushBytes()
{
    if (bytes_.isEmpty())
        return;
    const QString text = decoder_.decode(bytes_, codePageNow());
    bytes_.resize(0);
    deliver(text);
}

void RtfInterpreter::flushSurrogate()
{
    if (std::exchange(highSurrogate_, u'\0') == 0)
        return;
    constexpr char16_t lone = QChar::ReplacementCharacter;
    deliver(QStringView(&lone, 1));
}

void RtfInterpreter::codePoint(int number)
{
    constexpr int beyondUnits = 0x10000;
    constexpr int beyondUnicode = 0x110000;
    if (number >= beyondUnicode) {
        codeUnit(QChar::ReplacementCharacter);
    } else if (number >= beyondUnits) {
        codeUnit(QChar::highSurrogate(static_cast<char32_t>(number)));
        codeUnit(QChar::lowSurrogate(static_cast<char32_t>(number)));
    } else {
        codeUnit(static_cast<char16_t>(number)); // negative numbers are units above 0x7FFF
    }
}

void RtfInterpreter::codeUnit(char16_t unit)
{
    if (QChar::isLowSurrogate(unit) && highSurrogate_ != 0) {
        const std::array<char16_t, 2> pair{std::exchange(highSurrogate_, u'\0'), unit};
        deliver(QStringView(pair.data(), 2));
        return;
    }
    flushSurrogate();
    if (QChar::isHighSurrogate(unit))
        highSurrogate_ = unit;
    else
        character(QChar::isLowSurrogate(unit) ? char16_t(QChar::ReplacementCharacter) : unit);
}

void RtfInterpreter::character(char16_t character)
{
    deliver(QStringView(&character, 1));
}

void RtfInterpreter::deliver(QStringView text)
{
    if (highSurrogate_ != 0)
        flushSurrogate();
    constexpr qsizetype longestInstruction = 256;
    switch (group_.destination) {
    case RtfDestination::Body:
    case RtfDestination::Label:
        deliverBody(text);
        break;
    case RtfDestination::FontTable:
        fonts_.addName(text);
        break;
    case RtfDestination::ColourTable:
        colours_.addText(text);
        break;
    case RtfDestination::FieldInstruction:
        fieldInstruction_.append(text.first(
            std::min(text.size(),
                     longestInstruction - std::min(longestInstruction, fieldInstruction_.size()))));
        break;
    default:
        break;
    }
}

namespace {

/// The character that the document keeps, U+0000 for none.
char16_t keptCharacter(char16_t character, bool inTengwarFont)
{
    constexpr char16_t symbolBase = 0xF000;
    switch (character) {
    case u'\t':
    case u'\f':
        return character;
    case u'\n':
    case u'\v':
    case u'\r':
    case QChar::ParagraphSeparator:
        return QChar::LineSeparator;
    case QChar::ObjectReplacementCharacter: // stands for an object, and none is kept
    case 0xFDD0:                            // QTextDocument keeps these two for its frames
    case 0xFDD1:
        return QChar::ReplacementCharacter;
    default:
        break;
    }
    if (inTengwarFont && character >= symbolBase + 0x20 && character <= symbolBase + 0xFF)
        return RtfCodePage::latinCharacter(static_cast<uchar>(character - symbolBase));
    return character < 0x20 ? u'\0' : character;
}

bool isPlain(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) {
        return c.unicode() == u'\t' || (c.unicode() >= 0x20 && c.unicode() < QChar::LineSeparator);
    });
}

} // namespace

void RtfInterpreter::deliverBody(QStringView text)
{
    QString kept;
    if (!isPlain(text)) {
        const bool tengwar = isTengwarFont(group_.character.family);
        for (const QChar c : text) {
            if (const char16_t character = keptCharacter(c.unicode(), tengwar))
                kept.append(QChar(character));
        }
        text = kept;
    }
    if (text.isEmpty())
        return;
    if (group_.destination == RtfDestination::Label)
        group_.flow->addLabel(text, group_.character);
    else
        group_.flow->addText(text, group_.character, group_.paragraph);
}
