#include "rtf/RtfTokenizer.h"

#include <algorithm>
#include <array>
#include <limits>

namespace {

enum class ByteClass : quint8 { Text, Dropped, Syntax };

constexpr std::array<ByteClass, 256> byteClasses = [] {
    std::array<ByteClass, 256> classes{};
    for (size_t byte = 0; byte < 0x20; ++byte)
        classes[byte] = ByteClass::Dropped;
    classes['\t'] = ByteClass::Text;
    for (const char syntax : {'{', '}', '\\'})
        classes[static_cast<uchar>(syntax)] = ByteClass::Syntax;
    return classes;
}();

ByteClass classOf(char byte)
{
    return byteClasses[static_cast<uchar>(byte)];
}

bool isLetter(char byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

int hexDigit(char byte)
{
    if (isDigit(byte))
        return byte - '0';
    const char lower = static_cast<char>(byte | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

} // namespace

RtfTokenizer::RtfTokenizer(QByteArrayView bytes)
    : begin_(bytes.begin()), next_(begin_), end_(bytes.end()),
      afterLastBackslash_(begin_ + bytes.lastIndexOf('\\') + 1)
{
}

RtfToken RtfTokenizer::next()
{
    while (next_ != end_ && classOf(*next_) == ByteClass::Dropped)
        ++next_;
    if (next_ == end_)
        return {};
    switch (*next_) {
    case '{':
        ++next_;
        return {.kind = RtfToken::Kind::GroupStart};
    case '}':
        ++next_;
        return {.kind = RtfToken::Kind::GroupEnd};
    case '\\':
        ++next_;
        return escape();
    default:
        return text();
    }
}

RtfToken RtfTokenizer::text()
{
    const char *start = next_;
    next_ = std::find_if(next_, end_, [](char byte) { return classOf(byte) != ByteClass::Text; });
    return {.kind = RtfToken::Kind::Text, .text = {start, static_cast<size_t>(next_ - start)}};
}

RtfToken RtfTokenizer::escape()
{
    if (next_ == end_)
        return {};
    if (isLetter(*next_))
        return word();
    const char symbol = *next_++;
    if (symbol == '\'')
        return hexByte();
    if (symbol == '\r' && next_ != end_ && *next_ == '\n')
        ++next_;
    return {.kind = RtfToken::Kind::Symbol, .byte = static_cast<uchar>(symbol)};
}

RtfToken RtfTokenizer::word()
{
    const char *start = next_;
    next_ = std::find_if_not(next_, end_, isLetter);
    RtfToken token{.kind = RtfToken::Kind::Word,
                   .text = {start, static_cast<size_t>(next_ - start)}};
    readParameter(token);
    if (next_ != end_ && *next_ == ' ')
        ++next_;
    if (token.text == "bin") {
        token.kind = RtfToken::Kind::Binary;
        next_ += std::clamp<qsizetype>(token.parameter, 0, end_ - next_);
    }
    return token;
}

void RtfTokenizer::readParameter(RtfToken &token)
{
    const bool negative = next_ != end_ && *next_ == '-';
    const char *digits = next_ + (negative ? 1 : 0);
    if (digits == end_ || !isDigit(*digits))
        return;
    constexpr qint64 limit = std::numeric_limits<int>::max();
    qint64 value = 0;
    for (next_ = digits; next_ != end_ && isDigit(*next_); ++next_)
        value = std::min(limit, value * 10 + (*next_ - '0'));
    token.hasParameter = true;
    token.parameter = static_cast<int>(negative ? -value : value);
}

RtfToken RtfTokenizer::hexByte()
{
    RtfToken token{.kind = RtfToken::Kind::HexByte};
    const int high = next_ != end_ ? hexDigit(*next_) : -1;
    if (high < 0)
        return token;
    ++next_;
    token.parameter = 1;
    const int low = next_ != end_ ? hexDigit(*next_) : -1;
    if (low < 0)
        return token;
    ++next_;
    token.hasParameter = true;
    token.byte = static_cast<uchar>(high * 16 + low);
    return token;
}

void RtfTokenizer::skipGroup()
{
    for (qsizetype depth = 0; next_ != end_; ++next_) {
        next_ =
            std::find_if(next_, end_, [](char byte) { return classOf(byte) == ByteClass::Syntax; });
        if (next_ == end_)
            return;
        if (*next_ == '{') {
            ++depth;
        } else if (*next_ == '}') {
            if (depth-- == 0)
                return;
        } else {
            ++next_;
            static_cast<void>(escape()); // steps over an escaped brace, and over binary data
            --next_;
        }
    }
}
