#pragma once

#include "core/Tuple.h"

#include <algorithm>

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

/// The squared Euclidean distance, summed in the order red, green, blue.
float rgbDistance(const Color& a, const Color& b);

/// The squared distance in HSV space; each weight (hue, saturation, value) multiplies its
/// difference before squaring. Hue differences do not wrap around, deliberately.
float hsvDistance(const Color& a, const Color& b, const Vector<3, float>& weights);

} // namespace VORN
