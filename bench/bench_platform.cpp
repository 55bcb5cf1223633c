#include "platform/RichTextBox.h"
#include "platform/TextPosition.h"

#include <QApplication>
#include <benchmark/benchmark.h>
#include <memory>

// The rich-text control with 32,000 characters, in runs of four of different formats.

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
    QTextCursor cursor(box->document());
    cursor.beginEditBlock();
    for (int run = 0; run < runs; run += 2) {
        cursor.setPosition(documentPosition(*box->document(), run * runLength));
        cursor.setPosition(documentPosition(*box->document(), (run + 1) * runLength),
                           QTextCursor::KeepAnchor);
        changeCharacters(cursor, [run](CharacterFormat &format) {
            format.halfPoints = 16 + run % 80;
            format.offset = run % 3 == 0 ? 30 : 0;
        });
    }
    cursor.endEditBlock();
    box->show();
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

/// Time in proportion to the length says that no line looks at all the rest of the word.
void showOneLongWord(benchmark::State &state)
{
    RichTextBox box;
    box.resize(600, 800);
    box.show();
    const QString word(state.range(0), u'a');
    for (auto _ : state)
        box.setText(word);
    state.SetComplexityN(state.range(0));
}

BENCHMARK(readFormatOfEverything)->Unit(benchmark::kMillisecond);
BENCHMARK(writeRichText)->Unit(benchmark::kMillisecond);
BENCHMARK(makeEverythingBold)->Unit(benchmark::kMillisecond);
BENCHMARK(buildText)->Unit(benchmark::kMillisecond);
BENCHMARK(findTheLastWord)->Unit(benchmark::kMillisecond);
BENCHMARK(showOneLongWord)
    ->RangeMultiplier(4)
    ->Range(10'000, 1'000'000)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);
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
