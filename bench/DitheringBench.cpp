#include "beads/Dithering.h"
#include "bench/SampleData.h"

#include <benchmark/benchmark.h>

namespace VORN {
namespace {

/// Arguments: palette colours, whether they are compared as HSV.
void ditherPicture(benchmark::State& state) {
    const PaletteMatcher matcher = Bench::matcher(state.range(0), state.range(1) != 0);
    const auto picture = Bench::photo(1000, 1000);
    for (auto _ : state)
        benchmark::DoNotOptimize(dither(picture, matcher));
    state.SetItemsProcessed(state.iterations() * 1000 * 1000); // pixels
}
BENCHMARK(ditherPicture)
    ->Name("DitherPicture")
    ->ArgNames({"colors", "hsv"})
    ->ArgsProduct({{16, 62, 256}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace VORN
