#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace VORN::Migration::PNG {

/// The number of filter types (PNG, clause 9.2).
inline constexpr unsigned kFilterTypes = 5;

/// The largest pixel that a PNG header can claim, in bytes: 4 samples of 255 bits, rounded down.
inline constexpr std::size_t kMaximumPixelBytes = 127;

/// Undoes the filter of one line in place.
///
/// `filter` is below `kFilterTypes`. `prior` is the line above, already unfiltered and as long as
/// `line`; above the first line it is zeros. `pixelBytes` is 1 to `kMaximumPixelBytes`; the length
/// of the line is a multiple of it.
void unfilterLine(unsigned filter, std::span<std::uint8_t> line,
                  std::span<const std::uint8_t> prior, std::size_t pixelBytes);

} // namespace VORN::Migration::PNG
