#pragma once

#include "core/Tuple.h"

#include <algorithm>
#include <array>

namespace VORN {

/// Red, green and blue, each 0.0 (none) to 1.0 (full intensity) in principle; nothing is clamped.
class Color : public Serializable {
public:
    Color() = default;
    Color(float red, float green, float blue) : components_{red, green, blue} {}

    float operator[](std::size_t index) const { return components_[index]; }
    float& operator[](std::size_t index) { return components_[index]; }
    bool operator==(const Color& other) const { return components_ == other.components_; }

    /// Hue in whole turns, saturation and value.
    ///
    /// Deliberately, the hue divides only the second of the two lesser components by their range,
    /// and a negative fraction of a turn stays negative.
    Tuple<3, float> ToHSV() const;

    void serialize(Serializer& out) const override { components_.serialize(out); }

private:
    Tuple<3, float> components_;
};

/// The component that a byte of a picture stands for.
constexpr float toComponent(unsigned char byte) { return static_cast<float>(byte / 255.0); }

/// The integer part of `component` times 255, clamped to 0..255; not a number gives 0.
inline unsigned char toByte(float component) {
    const double scaled = component * 255.0;
    return scaled > 0.0 ? static_cast<unsigned char>(std::min(scaled, 255.0)) : 0;
}

/// Where a colour lies in the space in which colours are compared: its three coordinates. The fourth
/// is 0 and completes a vector of the machine.
using ColorPlace = std::array<float, 4>;

/// The squared Euclidean distance of red, green and blue, summed in this order.
struct RgbDistance {
    /// Where a colour lies that has these components.
    static ColorPlace place(const ColorPlace& rgb) { return rgb; }
    /// What the difference of each coordinate is multiplied with.
    static ColorPlace weights() { return {1.0F, 1.0F, 1.0F}; }

    float operator()(const ColorPlace& a, const ColorPlace& b) const {
        const float red = a[0] - b[0];
        const float green = a[1] - b[1];
        const float blue = a[2] - b[2];
        return red * red + green * green + blue * blue;
    }
    float operator()(const Color& a, const Color& b) const;
};

/// The squared distance of hue, saturation and value, summed in this order; each weight multiplies
/// its difference before squaring. Hue differences do not wrap around, deliberately.
class HsvDistance {
public:
    explicit HsvDistance(const Vector<3, float>& weights)
        : weights_{weights[0], weights[1], weights[2]} {}

    /// As `RgbDistance`.
    static ColorPlace place(const ColorPlace& rgb);
    const ColorPlace& weights() const { return weights_; }

    float operator()(const ColorPlace& a, const ColorPlace& b) const {
        const float hue = (a[0] - b[0]) * weights_[0];
        const float saturation = (a[1] - b[1]) * weights_[1];
        const float value = (a[2] - b[2]) * weights_[2];
        return hue * hue + saturation * saturation + value * value;
    }
    float operator()(const Color& a, const Color& b) const;

private:
    ColorPlace weights_;
};

} // namespace VORN
