#include "bench/SampleData.h"
#include "migration/png/Unfilter.h"

#include <benchmark/benchmark.h>

namespace VORN::Migration::PNG {
namespace {

/// Arguments: filter type, bytes a pixel.
void unfilter(benchmark::State& state) {
    const auto pixelBytes = static_cast<std::size_t>(state.range(1));
    const auto prior = Bench::noise(4000 * pixelBytes);
    std::vector<std::uint8_t> line{prior.rbegin(), prior.rend()};
    for (auto _ : state) {
        unfilterLine(static_cast<unsigned>(state.range(0)), line, prior, pixelBytes);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(line.size()));
}
BENCHMARK(unfilter)
    ->Name("Unfilter")
    ->ArgNames({"filter", "pixelBytes"})
    ->ArgsProduct({{1, 2, 3, 4}, {1, 3, 4}});

} // namespace
} // namespace VORN::Migration::PNG
