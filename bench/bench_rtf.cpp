// Reading and writing RTF: throughput on a rich document, and the cases that would be slow in a
// reader that is not linear.

#include "rtf/RtfFormat.h"
#include "rtf/RtfReader.h"
#include "rtf/RtfWriter.h"

#include <QGuiApplication>
#include <QRandomGenerator>
#include <QTextCursor>
#include <QTextDocument>
#include <benchmark/benchmark.h>

namespace {

constexpr quint32 seed = 1;

CharacterFormat randomFormat(QRandomGenerator &random)
{
    static const QStringList families{QStringLiteral("Sans"), QStringLiteral("Serif"),
                                      QStringLiteral("Tengwar Test")};
    CharacterFormat format;
    format.family = families[random.bounded(3)];
    format.halfPoints = random.bounded(18, 40);
    format.styles = CharacterStyles::fromInt(random.bounded(8));
    if (random.bounded(4) == 0)
        format.colour = 0xFF000000U | (random.bounded(16U) * 0x101010U);
    return format;
}

/// Runs of some ten characters, each in a format of its own; a paragraph for every eight of them.
void fillRichly(QTextDocument &document, qsizetype characters)
{
    QRandomGenerator random(seed);
    document.setUndoRedoEnabled(false);
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    for (qsizetype run = 0; document.characterCount() < characters; ++run) {
        QTextCharFormat format;
        randomFormat(random).applyTo(format);
        cursor.insertText(QStringLiteral("w\u00F6rds \u03B1 abcd "), format);
        if (run % 8 != 7)
            continue;
        ParagraphFormat paragraph;
        paragraph.left = 100 * random.bounded(10);
        paragraph.bullet = random.bounded(4) == 0;
        applyParagraphFormat(cursor, paragraph);
        cursor.insertBlock();
    }
    cursor.endEditBlock();
}

/// At least `size` bytes of rich RTF.
QByteArray richRtf(qsizetype size)
{
    QTextDocument document;
    fillRichly(document, 100'000);
    const QByteArray whole = writeRtf(document);
    const qsizetype start = whole.indexOf("\\pard");
    const QByteArray body = whole.sliced(start).chopped(1);
    return whole.first(start) + body.repeated(size / body.size() + 1).first(size) + '}';
}

void setBytes(benchmark::State &state, const QByteArray &rtf)
{
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * rtf.size());
}

void readDocument(benchmark::State &state, const QByteArray &rtf)
{
    for (auto _ : state) {
        QTextDocument document;
        if (readRtf(rtf, document))
            state.SkipWithError("not read");
    }
    setBytes(state, rtf);
}

void ReadRich(benchmark::State &state)
{
    readDocument(state, richRtf(state.range(0) << 20));
}

void ReadRichText(benchmark::State &state)
{
    const QByteArray rtf = richRtf(state.range(0) << 20);
    for (auto _ : state) {
        QString text;
        if (readRtfText(rtf, text))
            state.SkipWithError("not read");
    }
    setBytes(state, rtf);
}

void ReadParagraphs(benchmark::State &state)
{
    readDocument(state, "{\\rtf1 " + QByteArray("x\\par\n").repeated(300'000) + '}');
}

void ReadLine(benchmark::State &state)
{
    readDocument(state, "{\\rtf1 " + QByteArray(5'000'000, 'x') + '}');
}

void WriteRich(benchmark::State &state)
{
    QTextDocument document;
    fillRichly(document, state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(writeRtf(document));
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * document.characterCount());
}

BENCHMARK(ReadRich)->Arg(1)->Arg(20)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadRichText)->Arg(1)->Arg(20)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadParagraphs)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadLine)->Unit(benchmark::kMillisecond);
BENCHMARK(WriteRich)->Arg(32'000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
