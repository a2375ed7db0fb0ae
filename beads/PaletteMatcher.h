#pragma once

#include "beads/Palette.h"

#include <optional>
#include <vector>

namespace VORN {

/// Finds the palette colour nearest to a colour.
///
/// The distance is `rgbDistance`, or `hsvDistance` when weights (hue, saturation, value) are given.
class PaletteMatcher {
public:
    using Weights = std::optional<Vector<3, float>>;

    PaletteMatcher(const Palette& palette, const Weights& weights);

    /// The symbol of the nearest colour, the lowest of several; 0 when the palette is empty.
    unsigned char nearest(const Color& color) const { return symbols_[nearestEntry(color)]; }

    /// A palette colour with its symbol.
    struct Match {
        unsigned char symbol;
        Color color;
    };
    /// As `nearest`, with the colour that goes with it: black when the palette is empty.
    Match match(const Color& color) const {
        const std::size_t entry = nearestEntry(color);
        return {symbols_[entry], colors_[entry]};
    }

private:
    std::size_t nearestEntry(const Color& color) const;

    Weights weights_;
    std::vector<unsigned char> symbols_; // ascending
    std::vector<Color> colors_;
    // What is compared, RGB or HSV, by component; padded with infinity to a multiple of kLanes.
    std::array<std::vector<float>, 3> components_;
};

} // namespace VORN
