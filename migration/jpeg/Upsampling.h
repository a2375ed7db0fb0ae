#pragma once

#include <cstdint>
#include <span>

namespace VORN::Migration::JPEG {

// Components of half size are enlarged with the triangle filter: a new sample lies a quarter of the
// old distance from its nearer neighbour and takes 3/4 of it and 1/4 of the farther one. Ties are
// rounded down and up in turn, so that the mean stays; beyond the border the last sample is
// repeated.

/// Which of the two new samples between old ones is meant, and so how it is rounded.
enum class Half { First, Second };

/// 3 * `nearLine` + `farLine`, sample by sample; all three are of one length.
void addLines(std::span<const std::uint8_t> nearLine, std::span<const std::uint8_t> farLine,
              std::span<std::uint16_t> sums);

/// A line enlarged downwards: `sums`, made by `addLines`, divided by 4.
void enlargeDown(std::span<const std::uint16_t> sums, Half half, std::span<std::uint8_t> line);

/// A line enlarged across; `wide` is twice as long as `line`, which has at least 2 samples.
void enlargeAcross(std::span<const std::uint8_t> line, std::span<std::uint8_t> wide);

/// A line enlarged both ways: `sums` across, then divided by 16. Lengths as above.
void enlargeBoth(std::span<const std::uint16_t> sums, std::span<std::uint8_t> wide);

/// Enlarges by repetition: sample x of `wide` is sample x * `numerator` / `denominator` of `line`.
void repeatAcross(std::span<const std::uint8_t> line, std::uint32_t numerator,
                  std::uint32_t denominator, std::span<std::uint8_t> wide);

} // namespace VORN::Migration::JPEG
