#include "beads/BeadMatching.h"
#include "bench/SampleData.h"

#include <benchmark/benchmark.h>

namespace VORN {
namespace {

/// One colour after the other, found by `find`. Arguments: palette colours, whether they are
/// compared as HSV.
template <class Find>
void nearestColor(benchmark::State& state, Find find) {
    const auto bytes = Bench::noise(3 * 4096);
    for (auto _ : state)
        for (std::size_t i = 0; i < bytes.size(); i += 3)
            benchmark::DoNotOptimize(find(
                {toComponent(bytes[i]), toComponent(bytes[i + 1]), toComponent(bytes[i + 2])}));
    state.SetItemsProcessed(state.iterations() * 4096); // colours
}

void nearestByCells(benchmark::State& state) {
    const PaletteMatcher matcher = Bench::matcher(state.range(0), state.range(1) != 0);
    ColorCells cells{matcher};
    nearestColor(state, [&](const ColorPlace& rgb) { return cells.nearest(rgb); });
}
BENCHMARK(nearestByCells)
    ->Name("NearestColor/cells")
    ->ArgNames({"colors", "hsv"})
    ->ArgsProduct({{16, 62, 256}, {0, 1}});

void nearestOfAll(benchmark::State& state) {
    const PaletteMatcher matcher = Bench::matcher(state.range(0), state.range(1) != 0);
    nearestColor(state, [&](const ColorPlace& rgb) {
        return matcher.nearest(state.range(1) != 0 ? HsvDistance::place(rgb) : rgb);
    });
}
BENCHMARK(nearestOfAll)
    ->Name("NearestColor/all")
    ->ArgNames({"colors", "hsv"})
    ->ArgsProduct({{16, 62, 256}, {0, 1}});

/// A picture as a pattern with a bead for each pixel. Argument: palette colours.
void matchPicture(benchmark::State& state) {
    const auto picture = Bench::photo(1000, 1000);
    const PaletteMatcher matcher = Bench::matcher(state.range(0), false);
    const LayerShape shape{PatternStyle::Square, {1000U, 1000U}};
    std::string content(shape.contentLength(), kNoBead);
    for (auto _ : state)
        matchBeads(picture, matcher, {}, shape, content);
    state.SetItemsProcessed(state.iterations() * 1000 * 1000); // pixels
}
BENCHMARK(matchPicture)
    ->Name("MatchPicture")
    ->ArgName("colors")
    ->Arg(16)
    ->Arg(62)
    ->Arg(256)
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace VORN
