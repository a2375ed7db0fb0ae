#pragma once

#include "core/Color.h"

#include <array>

namespace VORN {

/// The picture colours that count as transparent: a range of bytes for each channel.
class ColorBox {
public:
    /// All bytes within `threshold` of `centre`, both in 0.0-1.0, rounded outwards.
    ColorBox(const Color& centre, float threshold);

    /// Whether each of the three bytes lies in its range, bounds included.
    bool contains(const unsigned char* rgb) const {
        return low_[0] <= rgb[0] && rgb[0] <= high_[0] && low_[1] <= rgb[1] && rgb[1] <= high_[1] &&
               low_[2] <= rgb[2] && rgb[2] <= high_[2];
    }

private:
    std::array<unsigned char, 3> low_{};
    std::array<unsigned char, 3> high_{};
};

} // namespace VORN
