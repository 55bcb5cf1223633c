// The format display while a long, heavily formatted text is selected. A frame takes 16 ms.

#include "editor/FormatIndicator.h"
#include "platform/FontList.h"
#include "platform/RichTextBox.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <benchmark/benchmark.h>

namespace {

constexpr int characters = 32'000;

/// What differs from one character to the next.
enum class Variety : int64_t {
    Everything, ///< mixed after a few characters
    Colours,    ///< every character has a format of its own, yet nothing that is shown is mixed
};

void fill(RichTextBox &pane, Variety variety)
{
    QTextCursor cursor(pane.document());
    cursor.beginEditBlock();
    for (int i = 0; i < characters; ++i) {
        CharacterFormat attributes;
        attributes.family = QStringLiteral("DejaVu Sans");
        if (variety == Variety::Colours) {
            attributes.colour = 0xff000000U + QRgb(i);
        } else {
            attributes.halfPoints = 20 + i % 17;
            attributes.offset = 10 * (i % 5);
            attributes.styles = CharacterStyles::fromInt(i % 8);
        }
        QTextCharFormat format;
        attributes.applyTo(format);
        if (i % 80 == 79)
            cursor.insertBlock();
        cursor.insertText(QStringLiteral("a"), format);
    }
    cursor.endEditBlock();
}

void selectAllAndShow(benchmark::State &state)
{
    RichTextBox pane;
    fill(pane, Variety(state.range(0)));
    QComboBox fontName;
    QComboBox fontSize;
    fontName.setEditable(true);
    fontName.addItems(installedFonts({}));
    fontSize.setEditable(true);
    QAction button(nullptr);
    button.setCheckable(true);
    QLabel selText;
    FormatIndicator display({fontName, fontSize, button, button, button, button, button, button,
                             button, button, button, button, selText});
    for ([[maybe_unused]] const auto iteration : state) {
        state.PauseTiming();
        pane.setSelStart(0);
        state.ResumeTiming();
        pane.setSelLength(pane.TextLength());
        display.ShowFormat(pane);
        display.ShowSelText(pane);
    }
}
BENCHMARK(selectAllAndShow)
    ->ArgName("variety")
    ->Arg(int64_t(Variety::Everything))
    ->Arg(int64_t(Variety::Colours))
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
