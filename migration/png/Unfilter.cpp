#include "migration/png/Unfilter.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace VORN::Migration::PNG {

namespace {

/// `yes` if `sign` is negative, else `no`; g++ would make a jump of a conditional expression.
inline int whereNegative(int sign, int yes, int no) { return no ^ ((yes ^ no) & (sign >> 31)); }

/// Whichever of left, above and upper left comes closest to left + above - upper left
/// (PNG, clause 9.4).
///
/// That sum is the upper left mirrored at the middle of the other two. So an upper left beyond one
/// of these, or no further from it than a third of their range, predicts the other one.
inline int paethPredictor(int left, int above, int upperLeft) {
    const int low = whereNegative(left - above, left, above);
    const int high = left + above - low;
    const int turn = 3 * upperLeft - (left + above);
    const int unlessLow = whereNegative(turn - high, upperLeft, low);
    return whereNegative(low - turn, unlessLow, high);
}

/// Takes the line, the line above, their length, which is a multiple of the pixel's, and the bytes
/// of a pixel.
using Function = void (*)(std::uint8_t* line, const std::uint8_t* prior, std::size_t size,
                          std::size_t pixelBytes);

/// The filters of pixels of `Fixed` bytes, or of any number of them where that is 0.
///
/// With a fixed number the pixel to the left stays in registers.
template <std::size_t Fixed>
struct Filters {
    static void none(std::uint8_t*, const std::uint8_t*, std::size_t, std::size_t) {}

    static void up(std::uint8_t* line, const std::uint8_t* prior, std::size_t size, std::size_t) {
        for (std::size_t i = 0; i < size; ++i)
            line[i] = static_cast<std::uint8_t>(line[i] + prior[i]);
    }

    /// Adds `predict(left, above, upper left)` to every byte.
    template <class Predict>
    static void addPrediction(std::uint8_t* line, const std::uint8_t* prior, std::size_t size,
                              std::size_t pixelBytes, Predict predict) {
        const std::size_t step = Fixed != 0 ? Fixed : pixelBytes;
        std::array<int, Fixed != 0 ? Fixed : kMaximumPixelBytes> left{};
        std::array<int, Fixed != 0 ? Fixed : kMaximumPixelBytes> upperLeft{};
        for (std::size_t i = 0; i + step <= size; i += step)
            for (std::size_t k = 0; k < step; ++k) {
                const int above = prior[i + k];
                left[k] = (line[i + k] + predict(left[k], above, upperLeft[k])) & 255;
                upperLeft[k] = above;
                line[i + k] = static_cast<std::uint8_t>(left[k]);
            }
    }

    static void sub(std::uint8_t* line, const std::uint8_t* prior, std::size_t size,
                    std::size_t pixelBytes) {
        addPrediction(line, prior, size, pixelBytes, [](int left, int, int) { return left; });
    }
    static void average(std::uint8_t* line, const std::uint8_t* prior, std::size_t size,
                        std::size_t pixelBytes) {
        addPrediction(line, prior, size, pixelBytes,
                      [](int left, int above, int) { return (left + above) / 2; });
    }
    static void paeth(std::uint8_t* line, const std::uint8_t* prior, std::size_t size,
                      std::size_t pixelBytes) {
        addPrediction(line, prior, size, pixelBytes, paethPredictor);
    }

    /// Indexed by the filter byte.
    static constexpr std::array<Function, kFilterTypes> kTable{none, sub, up, average, paeth};
};

Function functionFor(unsigned filter, std::size_t pixelBytes) {
    switch (pixelBytes) {
    case 1:
        return Filters<1>::kTable[filter];
    case 2:
        return Filters<2>::kTable[filter];
    case 3:
        return Filters<3>::kTable[filter];
    case 4:
        return Filters<4>::kTable[filter];
    case 6:
        return Filters<6>::kTable[filter];
    case 8:
        return Filters<8>::kTable[filter];
    default:
        return Filters<0>::kTable[filter];
    }
}

} // namespace

void unfilterLine(unsigned filter, std::span<std::uint8_t> line,
                  std::span<const std::uint8_t> prior, std::size_t pixelBytes) {
    functionFor(filter, pixelBytes)(line.data(), prior.data(), line.size(), pixelBytes);
}

} // namespace VORN::Migration::PNG
