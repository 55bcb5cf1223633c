// The first two bytes say how much of the input is text; the rest is a mode file.

#include "engine/CodePage.h"
#include "engine/LoadMode.h"
#include "engine/RuntimeError.h"
#include "engine/TranscribeText.h"

#include <QBuffer>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 2)
        return 0;
    const QByteArrayView input(data, static_cast<qsizetype>(size));
    const qsizetype wanted = data[0] + 256 * (data[1] % 4);
    const qsizetype textLength = std::min(wanted, input.size() - 2);
    QByteArray file = input.sliced(2 + textLength).toByteArray();
    QBuffer buffer(&file);
    buffer.open(QIODevice::ReadOnly);
    try {
        ModeTable table;
        readMode(buffer, QStringLiteral("fuzz"), table);
        TranscriptionContext context;
        context.UndefinedText = QStringLiteral("?");
        QString text = fromCodePage(input.sliced(2, textLength));
        static_cast<void>(TranscribeText(text, table, context));
    } catch (const RuntimeError &) {
        // A broken mode is told apart; that is all that is asked of it.
    }
    return 0;
}
