#include "bench/SampleData.h"
#include "migration/jpeg/ColorConversion.h"
#include "migration/jpeg/Upsampling.h"

#include <benchmark/benchmark.h>

namespace VORN::Migration::JPEG {
namespace {

constexpr std::size_t kWidth = 4000;

void convertLines(benchmark::State& state) {
    const std::vector<std::uint8_t> planes = Bench::noise(3 * kWidth);
    const std::span<const std::uint8_t> y{planes.data(), kWidth};
    const std::span<const std::uint8_t> cb{planes.data() + kWidth, kWidth};
    const std::span<const std::uint8_t> cr{planes.data() + 2 * kWidth, kWidth};
    std::vector<std::uint8_t> pixels(3 * kWidth);
    for (auto _ : state) {
        convertLine(y, cb, cr, pixels);
        benchmark::DoNotOptimize(pixels.data());
    }
    state.SetItemsProcessed(state.iterations() * kWidth); // pixels
}
BENCHMARK(convertLines)->Name("JPEGColor");

void enlargeLines(benchmark::State& state) {
    const std::vector<std::uint8_t> nearLine = Bench::noise(kWidth / 2);
    const std::vector<std::uint8_t> farLine(kWidth / 2, 77);
    std::vector<std::uint16_t> sums(kWidth / 2);
    std::vector<std::uint8_t> wide(kWidth);
    for (auto _ : state) {
        addLines(nearLine, farLine, sums);
        enlargeBoth(sums, wide);
        benchmark::DoNotOptimize(wide.data());
    }
    state.SetItemsProcessed(state.iterations() * kWidth); // samples
}
BENCHMARK(enlargeLines)->Name("JPEGEnlargement");

} // namespace
} // namespace VORN::Migration::JPEG
