#include "beads/LayerDrawing.h"
#include "beads/NearestBead.h"

#include <benchmark/benchmark.h>

namespace VORN {
namespace {

/// As pictures of small beads are drawn: a find for each of 500 x 500 points.
void nearestBead(benchmark::State& state, PatternStyle style) {
    constexpr unsigned kSize = 200;
    Pattern pattern;
    pattern.style = style;
    pattern.AddFilledLayer({kSize, kSize}, 'a');
    const NearestBead beads{pattern.view(0)};
    const LayerFrame frame{BeadGeometry{pattern.shape(0)}.box(), 1.0F};
    for (auto _ : state)
        for (unsigned y = 0; y < 500; ++y)
            for (unsigned x = 0; x < 500; ++x)
                benchmark::DoNotOptimize(beads.find(
                    frame.toBeads({0.4F * static_cast<float>(x), 0.4F * static_cast<float>(y)})));
    state.SetItemsProcessed(state.iterations() * 500 * 500); // points
}
BENCHMARK_CAPTURE(nearestBead, square, PatternStyle::Square)->Name("NearestBead/square");
BENCHMARK_CAPTURE(nearestBead, hex, PatternStyle::Hex)->Name("NearestBead/hex");
BENCHMARK_CAPTURE(nearestBead, circle, PatternStyle::Circle)->Name("NearestBead/circle");

} // namespace
} // namespace VORN
