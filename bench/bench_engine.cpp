// The engine beside the literal walk, in one run, so that the ratio holds on any machine.

#include "engine/LiteralWalk.h"
#include "engine/LoadMode.h"
#include "engine/TranscribeText.h"

#include <QRandomGenerator>
#include <benchmark/benchmark.h>

namespace {

constexpr quint32 seed = 1;

QString syllable(QRandomGenerator &random)
{
    static const QString consonants = u"bcdfghklmnprstvw"_qs;
    static const QString vowels = u"aeiou"_qs;
    QString text;
    if (random.bounded(4) != 0)
        text += vowels.at(random.bounded(5));
    text += consonants.at(random.bounded(16));
    if (random.bounded(3) == 0)
        text += consonants.at(random.bounded(16));
    return text;
}

/// A mode as people write them: groups of letters first, then every letter and sign by itself.
ModeTable modeOf(int rules)
{
    QRandomGenerator random(seed);
    ModeTable table;
    const QString single = u"abcdefghijklmnopqrstuvwxyz ,.!?-'"_qs;
    while (table.ruleCount() < rules - single.size())
        table.appendRule(syllable(random) + (random.bounded(2) ? syllable(random) : QString()),
                         u"x"_qs, random.bounded(8) ? QString() : u"\r"_qs,
                         random.bounded(8) ? QString() : u"\r"_qs, {});
    for (const QChar letter : single)
        table.appendRule(letter, letter, {}, {}, {});
    return table;
}

QString wordsOf(qsizetype length)
{
    QRandomGenerator random(seed);
    QString text;
    while (text.size() < length) {
        for (int i = random.bounded(1, 5); i > 0; --i)
            text += syllable(random);
        text += u' ';
    }
    return text.first(length);
}

/// Our own prose, over and over.
QString proseOf(qsizetype length)
{
    const QString prose =
        u"The lamps were lit along the quay, and the old clerk wrote as quickly as he could. "
        "Nobody had told him why the letters must leave that night; he only knew that the ship "
        "would not wait. \"Seven pages,\" he thought, \"and each of them in a different hand.\" "
        "When the bell rang he folded the last sheet, sealed it, and ran.\r\n"_qs;
    return prose.repeated(length / prose.size() + 1).first(length);
}

void report(benchmark::State &state, qsizetype characters)
{
    state.counters["characters/s"] = benchmark::Counter(
        static_cast<double>(characters), benchmark::Counter::kIsIterationInvariantRate);
}

void transcribe(benchmark::State &state, const ModeTable &table, const QString &text)
{
    for (auto _ : state) {
        TranscriptionContext context;
        QString folded = text;
        benchmark::DoNotOptimize(TranscribeText(folded, table, context));
    }
    report(state, text.size());
}

void fast(benchmark::State &state)
{
    transcribe(state, modeOf(static_cast<int>(state.range(0))), wordsOf(state.range(1)));
}

void literal(benchmark::State &state)
{
    const ModeTable table = modeOf(static_cast<int>(state.range(0)));
    const QString text = wordsOf(state.range(1));
    for (auto _ : state) {
        LiteralWalk walk{table, {}};
        walk.run(text);
        benchmark::DoNotOptimize(walk.output);
    }
    report(state, text.size());
}

/// A mode that comes with the program.
void ownMode(benchmark::State &state, const char *name)
{
    ModeTable table;
    if (!LoadMode(QStringLiteral(QUILLON_PROGRAM_FOLDER "/Modes"), QString::fromLatin1(name),
                  table)) {
        state.SkipWithError("the mode is not built");
        return;
    }
    transcribe(state, table, proseOf(maximumTextLength));
}

} // namespace

BENCHMARK(fast)
    ->ArgNames({"rules", "characters"})
    ->Args({100, 32767})
    ->Args({320, 32767})
    ->Args({1000, 32767})
    ->Args({32000, 32767})
    ->Args({320, 8192})
    ->Args({320, 2048})
    ->Unit(benchmark::kMillisecond);
// The literal walk at 32,000 rules takes minutes for a whole text; a piece tells the same.
BENCHMARK(literal)
    ->ArgNames({"rules", "characters"})
    ->Args({100, 32767})
    ->Args({320, 32767})
    ->Args({1000, 32767})
    ->Args({32000, 256})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);
BENCHMARK_CAPTURE(ownMode, english, "English")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ownMode, quenya, "Quenya")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ownMode, sindarin, "Sindarin")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ownMode, beleriand, "Beleriand")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ownMode, blackSpeech, "Black Speech")->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
