#include "cli/Utf8Pieces.h"

namespace {

/// The sequences that a lead byte can begin: their length and the range of their second byte, which
/// keeps out overlong forms, surrogates and what lies beyond U+10FFFF (The Unicode Standard,
/// table 3-7). Length 0: no sequence begins so.
struct Sequence
{
    int length;
    uchar secondLow = 0x80;
    uchar secondHigh = 0xBF;
};

Sequence sequenceOf(uchar lead)
{
    if (lead < 0x80)
        return {1};
    if (lead < 0xC2 || lead > 0xF4)
        return {0};
    if (lead < 0xE0)
        return {2};
    if (lead < 0xF0)
        return {3, uchar(lead == 0xE0 ? 0xA0 : 0x80), uchar(lead == 0xED ? 0x9F : 0xBF)};
    return {4, uchar(lead == 0xF0 ? 0x90 : 0x80), uchar(lead == 0xF4 ? 0x8F : 0xBF)};
}

/// Length of the sequence at the start of `bytes`: 0 when there is none, and more than there is
/// when the bytes end within one.
qsizetype sequenceLength(QByteArrayView bytes)
{
    const Sequence sequence = sequenceOf(static_cast<uchar>(bytes.front()));
    for (qsizetype i = 1; i < std::min<qsizetype>(sequence.length, bytes.size()); ++i) {
        const auto byte = static_cast<uchar>(bytes[i]);
        const uchar low = i == 1 ? sequence.secondLow : 0x80;
        const uchar high = i == 1 ? sequence.secondHigh : 0xBF;
        if (byte < low || byte > high)
            return 0;
    }
    return sequence.length;
}

} // namespace

QString Utf8Pieces::feed(QByteArrayView bytes)
{
    if (fault_)
        return {};
    pending_.append(bytes);
    qsizetype whole = 0;
    while (whole < pending_.size()) {
        const QByteArrayView rest = QByteArrayView(pending_).sliced(whole);
        const qsizetype length = sequenceLength(rest);
        if (length == 0)
            fault_ = offset_ + whole;
        if (length == 0 || length > rest.size())
            break;
        whole += length;
    }
    QString text = QString::fromUtf8(QByteArrayView(pending_).first(whole));
    // Whether the converter drops the mark by itself is not promised.
    if (offset_ == 0 && whole > 0 && text.startsWith(QChar::ByteOrderMark))
        text.remove(0, 1);
    pending_.remove(0, whole);
    offset_ += whole;
    return text;
}

void Utf8Pieces::finish()
{
    if (!fault_ && !pending_.isEmpty())
        fault_ = offset_;
}
