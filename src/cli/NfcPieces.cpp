#include "cli/NfcPieces.h"

namespace {

// No character below this one is a mark or composes with what stands before it, so a text can be
// cut in front of it (The Unicode Standard: the combining marks begin at U+0300).
constexpr char16_t firstCombining = 0x0300;
// Ordinary text has such a character every few words. Where there is none for this long, the text
// is composed as it stands, so that memory stays bounded.
constexpr qsizetype longestPending = 1 << 16;

qsizetype lastSafeCut(QStringView text)
{
    for (qsizetype cut = text.size() - 1; cut > 0; --cut) {
        if (text[cut].unicode() < firstCombining)
            return cut;
    }
    return text.size() > longestPending ? longestPending : 0;
}

QString compose(const QString &text)
{
    return text.normalized(QString::NormalizationForm_C);
}

} // namespace

QString NfcPieces::feed(QStringView piece)
{
    pending_.append(piece);
    qsizetype cut = lastSafeCut(pending_);
    if (cut > 0 && pending_.at(cut).isLowSurrogate())
        --cut;
    QString composed = compose(pending_.first(cut));
    pending_.remove(0, cut);
    return composed;
}

QString NfcPieces::finish()
{
    return compose(std::exchange(pending_, {}));
}
