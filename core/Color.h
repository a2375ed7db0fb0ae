#pragma once

#include "core/Tuple.h"

#include <algorithm>
#include <array>

namespace VORN {

/// Red, green and blue, each 0.0 (none) to 1.0 (full intensity) as a rule; nothing is clamped.
class Color : public Serializable {
public:
    /// Black.
    Color() = default;
    /// A colour of these components.
    Color(float red, float green, float blue) : components_{red, green, blue} {}

    /// Component `index`: 0 is red, 1 green, 2 blue.
    float operator[](std::size_t index) const { return components_[index]; }
    /// As above, to be changed.
    float& operator[](std::size_t index) { return components_[index]; }
    /// Whether all components are equal.
    bool operator==(const Color& other) const { return components_ == other.components_; }

    /// Hue in whole turns, saturation and value.
    ///
    /// Two deliberate differences from the usual formula: only the second of the two components in
    /// the hue's difference is divided by the range, and a negative hue stays negative.
    Tuple<3, float> ToHSV() const;

    void serialize(Serializer& out) const override { components_.serialize(out); }

private:
    Tuple<3, float> components_;
};

/// The component that each byte of a picture stands for, a 255th of it.
consteval std::array<float, 256> componentsOfBytes() {
    std::array<float, 256> components{};
    for (std::size_t byte = 0; byte < components.size(); ++byte)
        components[byte] = static_cast<float>(static_cast<double>(byte) / 255.0);
    return components;
}

/// The result of `componentsOfBytes`.
inline constexpr std::array<float, 256> kComponents = componentsOfBytes();

/// The component that a byte of a picture stands for.
constexpr float toComponent(unsigned char byte) { return kComponents[byte]; }

/// The byte of a picture that shows `component`: the integer part of `component` times 255, clamped
/// to 0..255. NaN becomes 0.
inline unsigned char toByte(float component) {
    const double scaled = component * 255.0;
    return scaled > 0.0 ? static_cast<unsigned char>(std::min(scaled, 255.0)) : 0;
}

/// A colour's three coordinates in the space in which colours are compared, RGB or HSV.
///
/// The fourth number is always 0. It makes the array as long as a vector register of the machine,
/// so that compilers compute with all coordinates at once.
using ColorPlace = std::array<float, 4>;

/// The squared Euclidean distance of red, green and blue, summed in this order.
struct RgbDistance {
    /// The coordinates of a colour, given by red, green and blue: just these.
    static ColorPlace place(const ColorPlace& rgb) { return rgb; }
    /// The factor of each coordinate's difference.
    static ColorPlace weights() { return {1.0F, 1.0F, 1.0F}; }

    /// The squared distance of two places.
    float operator()(const ColorPlace& a, const ColorPlace& b) const {
        ColorPlace squares;
        for (std::size_t i = 0; i < squares.size(); ++i)
            squares[i] = (a[i] - b[i]) * (a[i] - b[i]);
        return squares[0] + squares[1] + squares[2];
    }
    /// The squared distance of two colours.
    float operator()(const Color& a, const Color& b) const;
};

/// The squared distance of hue, saturation and value, summed in this order. Each difference is
/// multiplied by its weight before it is squared. Deliberately, hues do not wrap around: 0.0 and
/// 1.0 are far apart.
class HsvDistance {
public:
    /// `weights` are those of hue, saturation and value.
    explicit HsvDistance(const Vector<3, float>& weights)
        : weights_{weights[0], weights[1], weights[2]} {}

    /// The coordinates of a colour, given by red, green and blue: its hue, saturation and value.
    static ColorPlace place(const ColorPlace& rgb) {
        const Tuple<3, float> hsv = Color{rgb[0], rgb[1], rgb[2]}.ToHSV();
        return {hsv[0], hsv[1], hsv[2]};
    }
    /// The factor of each coordinate's difference.
    const ColorPlace& weights() const { return weights_; }

    /// The squared distance of two places.
    float operator()(const ColorPlace& a, const ColorPlace& b) const {
        ColorPlace squares;
        for (std::size_t i = 0; i < squares.size(); ++i) {
            const float difference = (a[i] - b[i]) * weights_[i];
            squares[i] = difference * difference;
        }
        return squares[0] + squares[1] + squares[2];
    }
    /// The squared distance of two colours.
    float operator()(const Color& a, const Color& b) const;

private:
    ColorPlace weights_;
};

} // namespace VORN
