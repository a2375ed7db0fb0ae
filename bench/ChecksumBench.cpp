#include "bench/SampleData.h"
#include "core/Crc32.h"
#include "migration/deflate/Adler32.h"

#include <benchmark/benchmark.h>

namespace VORN {
namespace {

template <class Checksum>
void checksum(benchmark::State& state) {
    const auto bytes = Bench::noise(1U << 16U);
    for (auto _ : state) {
        Checksum sum;
        sum.update(bytes);
        benchmark::DoNotOptimize(sum.value());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}
BENCHMARK_TEMPLATE(checksum, Crc32)->Name("Crc32");
BENCHMARK_TEMPLATE(checksum, Migration::Adler32)->Name("Adler32");

} // namespace
} // namespace VORN
