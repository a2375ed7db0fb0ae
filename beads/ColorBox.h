#pragma once

#include "beads/Picture.h"

namespace VORN {

/// The picture colours that count as transparent: a range of bytes for each channel.
class ColorBox {
public:
    /// All bytes within `threshold` of `centre`, both in 0.0-1.0, rounded outwards.
    ColorBox(const Color& centre, float threshold);

    /// Whether each channel lies in its range, bounds included.
    bool contains(const Rgb& pixel) const {
        return low_.red <= pixel.red && pixel.red <= high_.red && low_.green <= pixel.green &&
               pixel.green <= high_.green && low_.blue <= pixel.blue && pixel.blue <= high_.blue;
    }

private:
    Rgb low_;
    Rgb high_;
};

} // namespace VORN
