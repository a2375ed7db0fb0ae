#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace VORN::Migration::PNG {

/// The number of filter types (PNG, clause 9.2).
inline constexpr unsigned kFilterTypes = 5;

/// The most bytes that a pixel of any PNG header has: 4 samples of 255 bits, cut to whole bytes.
inline constexpr std::size_t kMaximumPixelBytes = 127;

/// Undoes the filter of one line in place.
///
/// `filter` is below `kFilterTypes`; `prior` is the reconstructed line above, as long as `line`
/// (zeros above the first one); `pixelBytes` is 1 to `kMaximumPixelBytes`
/// and divides the length of the line.
void unfilterLine(unsigned filter, std::span<std::uint8_t> line,
                  std::span<const std::uint8_t> prior, std::size_t pixelBytes);

} // namespace VORN::Migration::PNG
