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

namespace {

ColorPlace componentsOf(const Color& color) { return {color[0], color[1], color[2]}; }

/// The distance of two colours, by way of their places.
template <class Distance>
float distanceOf(const Distance& distance, const Color& a, const Color& b) {
    return distance(distance.place(componentsOf(a)), distance.place(componentsOf(b)));
}

} // namespace

float RgbDistance::operator()(const Color& a, const Color& b) const {
    return distanceOf(*this, a, b);
}

float HsvDistance::operator()(const Color& a, const Color& b) const {
    return distanceOf(*this, a, b);
}

} // namespace VORN
