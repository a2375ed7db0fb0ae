#include "migration/jpeg/InverseDct.h"

#include <benchmark/benchmark.h>
#include <random>

namespace VORN::Migration::JPEG {
namespace {

InverseDct evenTransform() {
    std::array<std::uint8_t, 65> parameters;
    parameters.fill(8);
    parameters[0] = 0; // precision and destination
    Segment segment{parameters};
    return InverseDct{QuantizationTable{segment}};
}

/// Argument: how many of the 64 coefficients are not 0.
void inverseDct(benchmark::State& state) {
    std::mt19937 random{1};
    CoefficientBlock pattern{};
    for (std::int64_t k = 0; k < state.range(0); ++k)
        pattern[kZigzagPlaces[static_cast<std::size_t>(k)]] =
            static_cast<std::int16_t>(random() % 63 + 1);
    const InverseDct inverse = evenTransform();
    std::array<std::uint8_t, 64> samples{};
    for (auto _ : state) {
        CoefficientBlock block = pattern;
        inverse.transform(block, samples.data(), 8);
        benchmark::DoNotOptimize(samples);
    }
    state.SetItemsProcessed(state.iterations() * 64); // samples
}
BENCHMARK(inverseDct)->Name("InverseDct")->ArgName("coefficients")->Arg(2)->Arg(10)->Arg(64);

} // namespace
} // namespace VORN::Migration::JPEG
