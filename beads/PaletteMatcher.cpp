#include "beads/PaletteMatcher.h"

#include <bit>
#include <cstdint>
#include <limits>

namespace VORN {

namespace {

/// A whole number that orders distances as they are ordered themselves, since they are never
/// negative; what is not a number comes last. Whole numbers are what every machine compares and
/// selects in vectors.
std::int32_t orderOf(float distance) {
    constexpr std::uint32_t kAllButSign = 0x7FFFFFFF;
    return static_cast<std::int32_t>(std::bit_cast<std::uint32_t>(distance) & kAllButSign);
}

template <class Distance>
std::size_t nearestOf(const Distance& distance, const ColorPlace& place,
                      const std::array<std::vector<float>, 3>& coordinates) {
    std::array<std::int32_t, Palette::kSlots> orders;
    const float* const first = coordinates[0].data();
    const float* const second = coordinates[1].data();
    const float* const third = coordinates[2].data();
    const std::size_t count = coordinates[0].size();
    for (std::size_t i = 0; i < count; ++i)
        orders[i] = orderOf(distance(place, ColorPlace{first[i], second[i], third[i]}));
    std::int32_t least = std::numeric_limits<std::int32_t>::max();
    for (std::size_t i = 0; i < count; ++i)
        least = std::min(least, orders[i]);
    std::size_t nearest = 0;
    while (orders[nearest] != least)
        ++nearest;
    return nearest;
}

} // namespace

PaletteMatcher::PaletteMatcher(const Palette& palette, const ColorDistance& distance)
    : distance_{distance} {
    for (const auto& [symbol, color] : palette) {
        symbols_.push_back(symbol);
        colors_.push_back({color[0], color[1], color[2]});
    }
    if (symbols_.empty()) {
        symbols_.push_back('\0');
        colors_.emplace_back();
    }
    for (const ColorPlace& color : colors_) {
        const auto placed = [&](const auto& chosen) { return chosen.place(color); };
        places_.push_back(std::visit(placed, distance_));
        for (std::size_t c = 0; c < coordinates_.size(); ++c)
            coordinates_[c].push_back(places_.back()[c]);
    }
}

std::size_t PaletteMatcher::nearest(const ColorPlace& place) const {
    if (const auto* hsv = std::get_if<HsvDistance>(&distance_))
        return nearestOf(*hsv, place, coordinates_);
    return nearestOf(RgbDistance{}, place, coordinates_);
}

} // namespace VORN
