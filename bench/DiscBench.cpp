#include "beads/LayerDrawing.h"
#include "bench/SampleData.h"

#include <benchmark/benchmark.h>

namespace VORN {
namespace {

/// A layer of 200 x 200 beads. Argument: the size of a bead in tenths of a pixel.
void drawLayer(benchmark::State& state, PatternStyle style) {
    Pattern pattern;
    pattern.style = style;
    pattern.AddFilledLayer({200U, 200U}, 'a');
    const Palette palette = Bench::palette(256);
    const float beadSize = static_cast<float>(state.range(0)) / 10.0F;
    Picture picture;
    for (auto _ : state)
        VORN::drawLayer(pattern.view(0), palette, beadSize, {}, picture);
    state.SetItemsProcessed(state.iterations() * std::int64_t{picture.width()} *
                            picture.height()); // pixels
}
BENCHMARK_CAPTURE(drawLayer, square, PatternStyle::Square)
    ->Name("DrawLayer/square")
    ->ArgName("tenths")
    ->Arg(10)
    ->Arg(50)
    ->Arg(57)
    ->Arg(200)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(drawLayer, hex, PatternStyle::Hex)
    ->Name("DrawLayer/hex")
    ->ArgName("tenths")
    ->Arg(10)
    ->Arg(50)
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace VORN
