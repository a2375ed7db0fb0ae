#pragma once

#include "beads/PaletteMatcher.h"
#include "core/Signal.h"

#include <cstdint>
#include <random>
#include <vector>

// What the benchmarks work on: the same in every run and on every machine.
namespace VORN::Bench {

/// Bytes without any pattern.
inline std::vector<std::uint8_t> noise(std::size_t count) {
    std::mt19937 random{1};
    std::vector<std::uint8_t> bytes(count);
    for (std::uint8_t& byte : bytes)
        byte = static_cast<std::uint8_t>(random());
    return bytes;
}

/// A picture of soft slopes with noise of a few steps, as cameras take them.
inline Signal<3, unsigned char> photo(unsigned width, unsigned height) {
    std::mt19937 random{2};
    Signal<3, unsigned char> picture{{3U, width, height}};
    for (unsigned y = 0; y < height; ++y)
        for (unsigned x = 0; x < width; ++x) {
            const unsigned slopes[] = {x * 240 / width, y * 240 / height,
                                       (x + y) * 240 / (width + height)};
            for (unsigned c = 0; c < 3; ++c)
                picture[{c, x, y}] = static_cast<unsigned char>(slopes[c] + random() % 16);
        }
    return picture;
}

/// A palette with as many colours, at most 256, all over the colour cube.
inline Palette palette(unsigned colors) {
    std::mt19937 random{3};
    const auto component = [&] { return static_cast<float>(random() % 256) / 255.0F; };
    Palette made;
    for (unsigned symbol = 0; symbol < colors; ++symbol) {
        const float red = component();
        const float green = component();
        made.Set(static_cast<char>(symbol), {red, green, component()});
    }
    return made;
}

/// A matcher of as many colours, in RGB or HSV.
inline PaletteMatcher matcher(std::int64_t colors, bool isHsv) {
    const Palette made = palette(static_cast<unsigned>(colors));
    return isHsv ? PaletteMatcher{made, HsvDistance{{1, 1, 1}}}
                 : PaletteMatcher{made, RgbDistance{}};
}

} // namespace VORN::Bench
