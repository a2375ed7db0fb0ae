#pragma once

#include <cstdint>
#include <span>

namespace VORN::Migration::JPEG {

/// Converts a line of luminance and chrominance to pixels of red, green and blue.
///
/// The result is that of the formula in single precision, clamped to 0..255 and truncated.
/// Deliberately, the two factors of green have only four digits. `y`, `cb` and `cr` have the same
/// length, `pixels` three times that.
void convertLine(std::span<const std::uint8_t> y, std::span<const std::uint8_t> cb,
                 std::span<const std::uint8_t> cr, std::span<std::uint8_t> pixels);

} // namespace VORN::Migration::JPEG
