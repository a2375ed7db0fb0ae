#pragma once

#include "migration/JPEGHeaders.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace VORN::Migration::JPEG {

/// The place of each coefficient of the zigzag sequence in a `CoefficientBlock` (ITU-T T.81, figure
/// A.6): 8 * horizontal frequency + vertical frequency.
// clang-format off
constexpr std::array<std::uint8_t, 64> kZigzagPlaces{
     0,  8,  1,  2,  9, 16, 24, 17, 10,  3,  4, 11, 18, 25, 32, 40,
    33, 26, 19, 12,  5,  6, 13, 20, 27, 34, 41, 48, 56, 49, 42, 35,
    28, 21, 14,  7, 15, 22, 29, 36, 43, 50, 57, 58, 51, 44, 37, 30,
    23, 31, 38, 45, 52, 59, 60, 53, 46, 39, 47, 54, 61, 62, 55, 63,
};
// clang-format on

/// The quantised coefficients of one block, horizontal frequencies one after the other.
using CoefficientBlock = std::array<std::int16_t, 64>;

/// Turns coefficients into samples: dequantisation, inverse DCT and level shift (ITU-T T.81,
/// clauses A.3.1, A.3.3 and A.3.4).
class InverseDct {
public:
    explicit InverseDct(const QuantizationTable& table);

    /// Writes 8 lines of 8 samples, the first at `samples`, each `lineBytes` after the one before,
    /// and sets the coefficients to 0 for the next block to be read.
    ///
    /// A sample is within 1 of what the exact transform gives, rounded and clamped to 0..255, for
    /// all coefficients that a picture can have.
    void transform(CoefficientBlock& coefficients, std::uint8_t* samples,
                   std::size_t lineBytes) const;
    /// The samples of a block whose only coefficient that is not 0 is its first.
    void fill(std::int16_t coefficient, std::uint8_t* samples, std::size_t lineBytes) const;

private:
    alignas(16) std::array<float, 64> scales_{}; // in the order of `CoefficientBlock`
};

} // namespace VORN::Migration::JPEG
