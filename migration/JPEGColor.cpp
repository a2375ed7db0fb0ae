#include "migration/JPEGColor.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

namespace VORN::Migration::JPEG {

namespace {

constexpr std::size_t kChunkPixels = 256;

std::uint8_t toByte(float value) {
    return static_cast<std::uint8_t>(
        static_cast<std::int32_t>(std::min(std::max(value, 0.0F), 255.0F)));
}

/// Four bytes a pixel, the last one unused, which vectorises where three would not.
void convertChunk(const std::uint8_t* __restrict y, const std::uint8_t* __restrict cb,
                  const std::uint8_t* __restrict cr, std::size_t count,
                  std::uint8_t* __restrict quads) {
    for (std::size_t i = 0; i < count; ++i) {
        const auto luminance = static_cast<float>(y[i]);
        const float blueness = static_cast<float>(cb[i]) - 128.0F;
        const float redness = static_cast<float>(cr[i]) - 128.0F;
        quads[4 * i] = toByte(luminance + 1.402F * redness);
        quads[4 * i + 1] = toByte(luminance - 0.3441F * blueness - 0.7141F * redness);
        quads[4 * i + 2] = toByte(luminance + 1.772F * blueness);
        quads[4 * i + 3] = 0;
    }
}

} // namespace

void convertLine(std::span<const std::uint8_t> y, std::span<const std::uint8_t> cb,
                 std::span<const std::uint8_t> cr, std::span<std::uint8_t> pixels) {
    std::array<std::uint8_t, 4 * kChunkPixels> quads;
    for (std::size_t begin = 0; begin < y.size(); begin += kChunkPixels) {
        const std::size_t count = std::min(kChunkPixels, y.size() - begin);
        convertChunk(&y[begin], &cb[begin], &cr[begin], count, quads.data());
        std::uint8_t* out = &pixels[3 * begin];
        // Each copy writes one byte too many, which the next one puts right; the last must not.
        for (std::size_t i = 0; i + 1 < count; ++i)
            std::memcpy(out + 3 * i, &quads[4 * i], 4);
        std::memcpy(out + 3 * (count - 1), &quads[4 * (count - 1)], 3);
    }
}

} // namespace VORN::Migration::JPEG
