#include "beads/ColorBox.h"

#include <cmath>

namespace VORN {

namespace {

unsigned char clampToByte(float value) {
    return static_cast<unsigned char>(std::clamp(value, 0.0F, 255.0F));
}

unsigned char lowest(float centre, float threshold) {
    return clampToByte(std::floor(static_cast<float>((centre - threshold) * 255.0)));
}

unsigned char highest(float centre, float threshold) {
    return clampToByte(std::ceil(static_cast<float>((centre + threshold) * 255.0)));
}

} // namespace

ColorBox::ColorBox(const Color& centre, float threshold)
    : low_{lowest(centre[0], threshold), lowest(centre[1], threshold),
           lowest(centre[2], threshold)},
      high_{highest(centre[0], threshold), highest(centre[1], threshold),
            highest(centre[2], threshold)} {}

} // namespace VORN
