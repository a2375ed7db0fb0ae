#pragma once

#include "beads/LazyTable.h"
#include "beads/Picture.h"

#include <array>
#include <cstdint>

namespace VORN {

/// Where the bytes of one channel go in a slot number: bits spread out in pairs, so that 64 slots
/// in a row, a cache line, hold a cube of 4 x 4 x 4 colours.
consteval std::array<std::uint32_t, 256> spreadBytes(unsigned channel) {
    std::array<std::uint32_t, 256> places{};
    for (std::uint32_t byte = 0; byte < 256; ++byte)
        for (unsigned pair = 0; pair < 4; ++pair)
            places[byte] |= ((byte >> (2 * pair)) & 3U) << (6 * pair + 2 * channel);
    return places;
}

/// The slot of a colour, below 2^24.
inline std::size_t colorSlot(const Rgb& color) {
    static constexpr std::array<std::array<std::uint32_t, 256>, 3> kPlaces{
        spreadBytes(0), spreadBytes(1), spreadBytes(2)};
    return kPlaces[0][color.red] | kPlaces[1][color.green] | kPlaces[2][color.blue];
}

/// Remembers one character for each colour of three bytes.
///
/// A table of 2^24 bytes, of which only the pages are ever touched whose colours occur; colours
/// close to each other share cache lines.
class ColorCache {
public:
    /// The character remembered for a colour, 0 at first.
    char& operator[](const Rgb& color) { return table_[colorSlot(color)]; }

private:
    LazyTable<char, std::size_t{1} << 24U> table_;
};

} // namespace VORN
