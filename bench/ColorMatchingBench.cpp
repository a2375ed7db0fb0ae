#include "beads/PictureConversion.h"
#include "bench/SampleData.h"

#include <benchmark/benchmark.h>

namespace VORN {
namespace {

/// One colour after the other. Arguments: palette colours, whether they are compared as HSV.
void nearestColor(benchmark::State& state) {
    const PaletteMatcher::Weights weights =
        state.range(1) != 0 ? PaletteMatcher::Weights{{1, 1, 1}} : PaletteMatcher::Weights{};
    const PaletteMatcher matcher{Bench::palette(static_cast<unsigned>(state.range(0))), weights};
    const auto bytes = Bench::noise(3 * 4096);
    for (auto _ : state)
        for (std::size_t i = 0; i < bytes.size(); i += 3)
            benchmark::DoNotOptimize(matcher.nearest(
                {toComponent(bytes[i]), toComponent(bytes[i + 1]), toComponent(bytes[i + 2])}));
    state.SetItemsProcessed(state.iterations() * 4096); // colours
}
BENCHMARK(nearestColor)
    ->Name("NearestColor")
    ->ArgNames({"colors", "hsv"})
    ->ArgsProduct({{16, 62, 256}, {0, 1}});

/// A picture as a pattern with a bead for each pixel. Argument: palette colours.
void matchPicture(benchmark::State& state) {
    const auto picture = Bench::photo(1000, 1000);
    const PaletteMatcher matcher{Bench::palette(static_cast<unsigned>(state.range(0))), {}};
    Pattern pattern;
    pattern.AddFilledLayer({1000U, 1000U}, kNoBead);
    for (auto _ : state)
        matchBeads(PictureView{picture}, matcher, {}, pattern);
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
