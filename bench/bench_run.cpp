// A whole transcription run in the window's panes beside a bare loop that serves the message loop
// as often, in one run, so that the ratio holds on any machine.

#include "editor/SharedState.h"
#include "editor/UndoJournal.h"
#include "engine/TranscribeText.h"
#include "engine/run/TranscriptionRun.h"
#include "platform/RichTextBox.h"
#include "support/ModeFolder.h"

#include <QApplication>
#include <QTimer>
#include <benchmark/benchmark.h>

namespace {

class NoJournal final : public UndoJournal
{
public:
    void SaveUndoState(PaneCode) override {}
    void UpdateUndoButtons(PaneCode) override {}
    void ClearUndoFiles(const QString &) override {}
};

/// The longest text that can be transcribed, in words and paragraphs.
QString pageOfProse()
{
    const QString paragraph = QStringLiteral("the lamps were lit along the quay and the old clerk "
                                             "wrote as quickly as he could while nobody came\r\n");
    return paragraph.repeated(maximumTextLength / paragraph.size() + 1).first(maximumTextLength);
}

void messageLoop(benchmark::State &state)
{
    for (auto _ : state) {
        for (qsizetype i = 0; i < maximumTextLength; ++i)
            QCoreApplication::processEvents();
    }
}

void wholeRun(benchmark::State &state)
{
    ModeBytes mode;
    for (char letter = 'a'; letter <= 'z'; ++letter)
        mode.rule(QByteArray(1, letter), QByteArray(1, letter));
    mode.rule(" ", " ");
    ModeFolder folder;
    folder.add(QStringLiteral("Letters"), mode.bytes());

    SharedState shared;
    shared.Settings.ModePath = folder.path();
    shared.Settings.CurrentMode = QStringLiteral("Letters");
    shared.Settings.ClearTargetPane = true;
    QWidget window;
    RichTextBox source(&window);
    RichTextBox target(&window);
    NoJournal journal;
    QTimer tmrStatus;
    QTimer tmrAutoGenerate;
    TranscriptionRun run(shared, {window, source, target, journal, tmrStatus, tmrAutoGenerate},
                         [] {});
    source.setText(pageOfProse());
    window.show();
    for (auto _ : state)
        run.PrepareGeneration();
}

} // namespace

BENCHMARK(messageLoop)->Unit(benchmark::kMillisecond);
BENCHMARK(wholeRun)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
