#include "beads/ColorBox.h"

#include <cmath>

namespace VORN {

namespace {

unsigned char clampToByte(float value) {
    return static_cast<unsigned char>(std::clamp(value, 0.0F, 255.0F));
}

} // namespace

ColorBox::ColorBox(const Color& centre, float threshold) {
    for (std::size_t channel = 0; channel < 3; ++channel) {
        const float c = centre[channel];
        low_[channel] = clampToByte(std::floor(static_cast<float>((c - threshold) * 255.0)));
        high_[channel] = clampToByte(std::ceil(static_cast<float>((c + threshold) * 255.0)));
    }
}

} // namespace VORN
