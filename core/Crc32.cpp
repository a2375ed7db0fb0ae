#include "core/Crc32.h"

#include <array>
#include <cstddef>

namespace VORN {

namespace {

constexpr std::uint32_t kPolynomial = 0xEDB88320;
constexpr std::size_t kSlices = 8;

using Slices = std::array<std::array<std::uint32_t, 256>, kSlices>;

/// Row 0 is the table of PNG, annex D; row n advances what row n - 1 yields by one zero byte more.
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

} // namespace

void Crc32::update(std::span<const std::uint8_t> bytes) {
    const auto& s = kSlice;
    std::uint32_t crc = state_;
    while (bytes.size() >= kSlices) {
        const std::uint32_t low = crc ^ littleEndian32(bytes.data());
        const std::uint32_t high = littleEndian32(bytes.data() + 4);
        crc = s[7][low & 255] ^ s[6][low >> 8 & 255] ^ s[5][low >> 16 & 255] ^ s[4][low >> 24] ^
              s[3][high & 255] ^ s[2][high >> 8 & 255] ^ s[1][high >> 16 & 255] ^ s[0][high >> 24];
        bytes = bytes.subspan(kSlices);
    }
    for (const std::uint8_t byte : bytes)
        crc = s[0][(crc ^ byte) & 255] ^ (crc >> 8);
    state_ = crc;
}

} // namespace VORN
