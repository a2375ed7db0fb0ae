#pragma once

#include <cstdint>
#include <span>

namespace VORN::Migration::JPEG {

// Components of half the size are enlarged with the triangle filter. A new sample lies between two
// old ones, three times as far from one as from the other, and is 3/4 of the nearer and 1/4 of the
// farther. Halves are rounded down and up in turn, so that the mean stays. Beyond the border the
// last sample is repeated.

/// Which of the two new samples that stand for an old one is meant; it decides how halves are
/// rounded.
enum class Half { First, Second };

/// Sets `sums` to 3 * `nearLine` + `farLine`, sample by sample; all three have the same length.
void addLines(std::span<const std::uint8_t> nearLine, std::span<const std::uint8_t> farLine,
              std::span<std::uint16_t> sums);

/// Enlarges downwards: sets `line` to `sums`, which `addLines` made, divided by 4.
void enlargeDown(std::span<const std::uint16_t> sums, Half half, std::span<std::uint8_t> line);

/// Enlarges `line` across to `wide`, which is twice as long; `line` has at least 2 samples.
void enlargeAcross(std::span<const std::uint8_t> line, std::span<std::uint8_t> wide);

/// Enlarges both ways: `sums`, which `addLines` made, is enlarged across and divided by 16. Lengths
/// are as above.
void enlargeBoth(std::span<const std::uint16_t> sums, std::span<std::uint8_t> wide);

/// Enlarges across by repetition: sample x of `wide` is sample x * `numerator` / `denominator` of
/// `line`.
void repeatAcross(std::span<const std::uint8_t> line, std::uint32_t numerator,
                  std::uint32_t denominator, std::span<std::uint8_t> wide);

} // namespace VORN::Migration::JPEG
