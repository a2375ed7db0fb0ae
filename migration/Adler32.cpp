#include "migration/Adler32.h"

#include <algorithm>
#include <cstddef>

namespace VORN::Migration {

namespace {

constexpr std::uint32_t kModulus = 65521;
// As many bytes may be summed from reduced sums before 32 bits overflow.
constexpr std::uint64_t kUnreducedBytes = 5552;
static_assert(255 * kUnreducedBytes * (kUnreducedBytes + 1) / 2 +
                  (kUnreducedBytes + 1) * (kModulus - 1) <
              std::uint64_t{1} << 32);
constexpr std::size_t kBlockBytes = 16;
static_assert(kUnreducedBytes % kBlockBytes == 0);

} // namespace

void Adler32::update(std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
        std::span<const std::uint8_t> run =
            bytes.first(std::min<std::size_t>(bytes.size(), kUnreducedBytes));
        bytes = bytes.subspan(run.size());
        // A block of n bytes adds n a + n p0 + (n - 1) p1 + ... to b; neither sum waits for the
        // byte before, so that the loop over a block vectorises.
        for (; run.size() >= kBlockBytes; run = run.subspan(kBlockBytes)) {
            std::uint32_t sum = 0;
            std::uint32_t weighted = 0;
            for (std::uint32_t i = 0; i < kBlockBytes; ++i) {
                sum += run[i];
                weighted += (kBlockBytes - i) * run[i];
            }
            b_ += kBlockBytes * a_ + weighted;
            a_ += sum;
        }
        for (const std::uint8_t byte : run) {
            a_ += byte;
            b_ += a_;
        }
        a_ %= kModulus;
        b_ %= kModulus;
    }
}

} // namespace VORN::Migration
