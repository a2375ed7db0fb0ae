#include "beads/Scaling.h"
#include "bench/SampleData.h"

#include <benchmark/benchmark.h>

namespace VORN {
namespace {

/// A picture of 1000 x 1000 pixels, made square. Argument: the new width.
void scalePicture(benchmark::State& state) {
    const auto picture = Bench::photo(1000, 1000);
    const auto width = static_cast<unsigned>(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(scale(picture, width, width));
    state.SetItemsProcessed(state.iterations() * 1000 * 1000); // pixels read
}
BENCHMARK(scalePicture)
    ->Name("ScalePicture")
    ->ArgName("width")
    ->Arg(28)
    ->Arg(200)
    ->Arg(1500)
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace VORN
