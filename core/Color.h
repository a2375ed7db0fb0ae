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

/// Where a colour lies in the space in which colours are compared: its three coordinates. The
/// fourth is 0 and completes a vector of the machine, so that all are worked on at once.
using ColorPlace = std::array<float, 4>;

/// The squared Euclidean distance of red, green and blue, summed in this order.
struct RgbDistance {
    /// Where a colour lies that has these components.
    static ColorPlace place(const ColorPlace& rgb) { return rgb; }
    /// What the difference of each coordinate is multiplied with.
    static ColorPlace weights() { return {1.0F, 1.0F, 1.0F}; }

    float operator()(const ColorPlace& a, const ColorPlace& b) const {
        ColorPlace squares;
        for (std::size_t i = 0; i < squares.size(); ++i)
            squares[i] = (a[i] - b[i]) * (a[i] - b[i]);
        return squares[0] + squares[1] + squares[2];
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
    static ColorPlace place(const ColorPlace& rgb) {
        const Tuple<3, float> hsv = Color{rgb[0], rgb[1], rgb[2]}.ToHSV();
        return {hsv[0], hsv[1], hsv[2]};
    }
    const ColorPlace& weights() const { return weights_; }

    float operator()(const ColorPlace& a, const ColorPlace& b) const {
        ColorPlace squares;
        for (std::size_t i = 0; i < squares.size(); ++i) {
            const float difference = (a[i] - b[i]) * weights_[i];
            squares[i] = difference * difference;
        }
        return squares[0] + squares[1] + squares[2];
    }
    float operator()(const Color& a, const Color& b) const;

private:
    ColorPlace weights_;
};

} // namespace VORN
