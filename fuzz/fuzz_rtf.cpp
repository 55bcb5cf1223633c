// Whatever is read must be written such that it reads back as the same bytes.

#include "rtf/RtfReader.h"
#include "rtf/RtfWriter.h"

#include <QTextDocument>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray rtf =
        "{\\rtf1" + QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    QTextDocument document;
    if (readRtf(rtf, document))
        return 0;
    const QByteArray written = writeRtf(document);
    QTextDocument again;
    if (readRtf(written, again) || writeRtf(again) != written)
        std::abort();
    return 0;
}
