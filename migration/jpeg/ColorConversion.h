#pragma once

#include <cstdint>
#include <span>

namespace VORN::Migration::JPEG {

/// Converts a line of luminance and chrominance into pixels of red, green and blue.
///
/// The formula is worked out in single precision, clamped to 0..255 and truncated; the two factors
/// of green deliberately have four digits only. All lines are of one length, `pixels` has three
/// times as many bytes.
void convertLine(std::span<const std::uint8_t> y, std::span<const std::uint8_t> cb,
                 std::span<const std::uint8_t> cr, std::span<std::uint8_t> pixels);

} // namespace VORN::Migration::JPEG
