#include "platform/RichTextBox.h"
#include "platform/TextPosition.h"

#include <QApplication>
#include <benchmark/benchmark.h>
#include <memory>

// The rich-text control with 32,000 characters, every fourth of them in another format.

namespace {

constexpr int runLength = 4;
constexpr int runs = 8000;
constexpr int runsToAParagraph = 20;

QString sampleText()
{
    QString text;
    for (int run = 0; run < runs; ++run)
        text +=
            run % runsToAParagraph == 0 ? QStringLiteral("ab\r\n") : QStringLiteral("abc\u00AD");
    return text;
}

/// A box full of the text, shown, formatted and selected as a whole.
std::unique_ptr<RichTextBox> sampleBox()
{
    auto box = std::make_unique<RichTextBox>();
    box->resize(600, 800);
    box->setText(sampleText());
    box->show();
    for (int run = 0; run < runs; run += 2) {
        box->setSelStart(run * runLength);
        box->setSelLength(runLength);
        box->setSelFontSize(8 + run % 40);
        if (run % 3 == 0)
            box->setSelCharOffset(30);
    }
    box->selectAll();
    return box;
}

void readFormatOfEverything(benchmark::State &state)
{
    const auto box = sampleBox();
    for (auto _ : state)
        benchmark::DoNotOptimize(selectionFormat(box->textCursor()));
}

void writeRichText(benchmark::State &state)
{
    const auto box = sampleBox();
    for (auto _ : state)
        benchmark::DoNotOptimize(box->TextRTF());
}

void makeEverythingBold(benchmark::State &state)
{
    const auto box = sampleBox();
    bool bold = false;
    for (auto _ : state)
        box->setSelBold(bold = !bold);
}

void buildText(benchmark::State &state)
{
    const auto box = sampleBox();
    for (auto _ : state)
        benchmark::DoNotOptimize(
            userText(*box->document(), 0, box->document()->characterCount() - 1));
}

void findTheLastWord(benchmark::State &state)
{
    const auto box = sampleBox();
    box->setSelStart(box->TextLength());
    box->setSelText(QStringLiteral("last"));
    for (auto _ : state)
        benchmark::DoNotOptimize(box->find(QStringLiteral("LAST"), 0, box->TextLength()));
}

void setWholeText(benchmark::State &state)
{
    const auto box = sampleBox();
    const QString text = sampleText().repeated(int(state.range(0)));
    for (auto _ : state)
        box->setText(text);
}

BENCHMARK(readFormatOfEverything)->Unit(benchmark::kMillisecond);
BENCHMARK(writeRichText)->Unit(benchmark::kMillisecond);
BENCHMARK(makeEverythingBold)->Unit(benchmark::kMillisecond);
BENCHMARK(buildText)->Unit(benchmark::kMillisecond);
BENCHMARK(findTheLastWord)->Unit(benchmark::kMillisecond);
BENCHMARK(setWholeText)->Arg(1)->Arg(30)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
