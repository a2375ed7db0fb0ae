#include "migration/jpeg/HuffmanTable.h"

#include <benchmark/benchmark.h>
#include <random>
#include <vector>

namespace VORN::Migration::JPEG {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// A segment with one AC table: sizes 1 to 10 behind runs of 0 to 15. Sizes grow and runs lengthen
/// with the codes, as in photographs.
Bytes tableSegment() {
    Bytes segment{0x10, 0, 2, 1, 2, 3, 3, 4, 4, 5, 5, 6, 8, 10, 20, 40, 47};
    for (unsigned sum = 0; sum < 25; ++sum)
        for (unsigned run = 0; run <= std::min(sum, 15U); ++run)
            if (const unsigned size = sum - run + 1; size <= 10)
                segment.push_back(static_cast<std::uint8_t>(run << 4U | size));
    return segment;
}

/// Entropy-coded data, each code as often as its length promises and followed by random bits.
class EntropyData {
public:
    explicit EntropyData(const Bytes& segment) : segment_{segment} {}

    void putCoefficient() {
        unsigned code = 0;
        unsigned firstCode = 0;
        std::size_t firstSymbol = 17;
        const unsigned drawn = random_() % 0xFFFF;
        for (unsigned length = 1; length <= 16; ++length) {
            const unsigned count = segment_[length];
            code = drawn >> (16 - length);
            if (code < firstCode + count) {
                const unsigned symbol = segment_[firstSymbol + code - firstCode];
                putBits(code, length);
                putBits(random_(), symbol & 15U);
                return;
            }
            firstCode = (firstCode + count) << 1U;
            firstSymbol += count;
        }
    }
    const Bytes& bytes() const { return bytes_; }

private:
    void putBits(unsigned bits, unsigned count) {
        while (count-- > 0) {
            byte_ = byte_ << 1U | (bits >> count & 1U);
            if (++filled_ % 8 != 0)
                continue;
            bytes_.push_back(static_cast<std::uint8_t>(byte_));
            if (bytes_.back() == 0xFF)
                bytes_.push_back(0); // ITU-T T.81, clause F.1.2.3
        }
    }

    const Bytes& segment_;
    std::mt19937 random_{1};
    Bytes bytes_;
    unsigned byte_ = 0;
    std::size_t filled_ = 0; // bits
};

void takeCoefficients(benchmark::State& state) {
    constexpr int kCoefficients = 100'000;
    const Bytes parameters = tableSegment();
    EntropyData data{parameters};
    for (int i = 0; i < kCoefficients; ++i)
        data.putCoefficient();
    Segment segment{parameters};
    const HuffmanTable table{segment};
    for (auto _ : state) {
        ByteUnstuffer bits{data.bytes()};
        int sum = 0;
        for (int i = 0; i < kCoefficients; ++i) {
            const auto [run, value] = table.takeCoefficient(bits);
            sum += value + static_cast<int>(run);
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * kCoefficients);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(data.bytes().size()));
}
BENCHMARK(takeCoefficients)->Name("JPEGEntropy");

} // namespace
} // namespace VORN::Migration::JPEG
