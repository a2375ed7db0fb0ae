#include "core/Color.h"

#include <cmath>

namespace VORN {

namespace {

constexpr float kEpsilon = 1.1920929e-07F; // 2^-23

} // namespace

Tuple<3, float> Color::ToHSV() const {
    const auto& c = components_;
    std::size_t i = 0;
    for (std::size_t k = 1; k < 3; ++k)
        if (c[k] > c[i])
            i = k;
    const float max = c[i];
    const float min = std::min(std::min(c[1], c[2]), c[0]);
    const float delta = max - min;

    float hue = 0.0F;
    if (!(std::fabs(delta) < kEpsilon)) {
        const float t = c[(i + 1) % 3] - c[(i + 2) % 3] / delta + 2.0F * static_cast<float>(i);
        double whole = 0.0;
        hue = static_cast<float>(std::modf(t / 6.0, &whole));
    }
    const float saturation = std::fabs(max) < kEpsilon ? 0.0F : delta / max;
    return {hue, saturation, max};
}

float rgbDistance(const Color& a, const Color& b) {
    const float red = a[0] - b[0];
    const float green = a[1] - b[1];
    const float blue = a[2] - b[2];
    return red * red + green * green + blue * blue;
}

float hsvDistance(const Color& a, const Color& b, const Vector<3, float>& weights) {
    const Tuple<3, float> second = b.ToHSV();
    const Tuple<3, float> first = a.ToHSV();
    const float hue = (first[0] - second[0]) * weights[0];
    const float saturation = (first[1] - second[1]) * weights[1];
    const float value = (first[2] - second[2]) * weights[2];
    return hue * hue + saturation * saturation + value * value;
}

} // namespace VORN
