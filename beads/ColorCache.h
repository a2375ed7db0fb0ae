#pragma once

#include "beads/LazyTable.h"

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
inline std::size_t colorSlot(const unsigned char* rgb) {
    static constexpr std::array<std::array<std::uint32_t, 256>, 3> kPlaces{
        spreadBytes(0), spreadBytes(1), spreadBytes(2)};
    return kPlaces[0][rgb[0]] | kPlaces[1][rgb[1]] | kPlaces[2][rgb[2]];
}

/// Remembers one byte for each colour of three bytes.
///
/// A table of 2^24 bytes, of which only the pages are ever touched whose colours occur; colours
/// close to each other share cache lines.
class ColorCache {
public:
    /// The byte remembered for a colour, 0 at first.
    std::uint8_t& operator[](const unsigned char* rgb) { return table_[colorSlot(rgb)]; }

private:
    LazyTable<std::uint8_t, std::size_t{1} << 24U> table_;
};

} // namespace VORN
