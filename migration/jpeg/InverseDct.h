#pragma once

#include "migration/jpeg/Headers.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace VORN::Migration::JPEG {

/// The place of each coefficient of the zigzag sequence in a `CoefficientBlock` (ITU-T T.81, figure
/// A.6): 8 * horizontal frequency + vertical frequency.
constexpr std::array<std::uint8_t, 64> kZigzagPlaces = [] {
    std::array<std::uint8_t, 64> places{};
    std::size_t next = 0;
    for (int diagonal = 0; diagonal < 15; ++diagonal)
        for (int i = std::max(0, diagonal - 7); i <= std::min(diagonal, 7); ++i) {
            const int horizontal = diagonal % 2 == 0 ? i : diagonal - i;
            places[next++] = static_cast<std::uint8_t>(7 * horizontal + diagonal);
        }
    return places;
}();
static_assert(kZigzagPlaces[1] == 8 && kZigzagPlaces[28] == 56 && kZigzagPlaces[63] == 63);

/// The quantised coefficients of one block, horizontal frequencies one after the other.
using CoefficientBlock = std::array<std::int16_t, 64>;

/// Turns coefficients into samples: dequantisation, inverse DCT and level shift (ITU-T T.81,
/// clauses A.3.1, A.3.3 and A.3.4).
class InverseDct {
public:
    /// The transform of coefficients that were quantised with `table`.
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
