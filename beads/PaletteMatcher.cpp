#include "beads/PaletteMatcher.h"

#include <bit>
#include <cstdint>
#include <limits>

namespace VORN {

namespace {

constexpr std::size_t kLanes = 16; // entries compared side by side
constexpr std::uint32_t kSign = 0x80000000;

} // namespace

PaletteMatcher::PaletteMatcher(const Palette& palette, const Weights& weights) : weights_{weights} {
    for (unsigned symbol = 0; symbol < Palette::kSlots; ++symbol) {
        const auto byte = static_cast<unsigned char>(symbol);
        if (!palette.Contains(byte))
            continue;
        symbols_.push_back(byte);
        colors_.push_back(palette.Get(byte));
    }
    if (symbols_.empty()) {
        symbols_.push_back(0);
        colors_.emplace_back();
    }
    const std::size_t padded = (symbols_.size() + kLanes - 1) / kLanes * kLanes;
    for (std::size_t component = 0; component < 3; ++component) {
        components_[component].assign(padded, std::numeric_limits<float>::infinity());
        for (std::size_t i = 0; i < colors_.size(); ++i)
            components_[component][i] =
                weights_ ? colors_[i].ToHSV()[component] : colors_[i][component];
    }
}

// Distances are never negative, so their bits compare as the numbers do, and integers are what
// every machine compares and selects in vectors. Each lane keeps its first nearest entry.
std::size_t PaletteMatcher::nearestEntry(const Color& color) const {
    float q[3] = {color[0], color[1], color[2]};
    float w[3] = {1.0F, 1.0F, 1.0F};
    if (weights_) {
        const Tuple<3, float> hsv = color.ToHSV();
        for (std::size_t i = 0; i < 3; ++i) {
            q[i] = hsv[i];
            w[i] = (*weights_)[i];
        }
    }
    std::int32_t best[kLanes];
    std::int32_t entry[kLanes] = {};
    std::fill_n(best, kLanes, std::numeric_limits<std::int32_t>::max());
    const float* const c0 = components_[0].data();
    const float* const c1 = components_[1].data();
    const float* const c2 = components_[2].data();
    const std::size_t count = components_[0].size();
    for (std::size_t start = 0; start < count; start += kLanes)
        for (std::size_t lane = 0; lane < kLanes; ++lane) {
            const float d0 = (q[0] - c0[start + lane]) * w[0];
            const float d1 = (q[1] - c1[start + lane]) * w[1];
            const float d2 = (q[2] - c2[start + lane]) * w[2];
            const float distance = d0 * d0 + d1 * d1 + d2 * d2;
            const auto bits =
                static_cast<std::int32_t>(std::bit_cast<std::uint32_t>(distance) & ~kSign);
            const bool nearer = bits < best[lane];
            best[lane] = nearer ? bits : best[lane];
            entry[lane] = nearer ? static_cast<std::int32_t>(start + lane) : entry[lane];
        }
    std::size_t winner = 0;
    for (std::size_t lane = 1; lane < kLanes; ++lane)
        if (best[lane] < best[winner] ||
            (best[lane] == best[winner] && entry[lane] < entry[winner]))
            winner = lane;
    return static_cast<std::size_t>(entry[winner]);
}

} // namespace VORN
