#include "beads/PaletteMatcher.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

namespace VORN {

namespace {

constexpr std::size_t kLanes = 16; // entries compared side by side
constexpr std::uint32_t kSign = 0x80000000;

// What rounding may do to distances is far less than kRelativeError, as long as squares are within
// these bounds: below they lose digits, above they may become infinite, and so equal.
constexpr float kRelativeError = 1e-5F;
constexpr float kLeastSquare = 1e-30F;
constexpr float kMostSquare = 1e37F;

float square(float number) { return number * number; }

} // namespace

PaletteMatcher::PaletteMatcher(const Palette& palette, const Weights& weights)
    : isHsv_{weights.has_value()},
      weights_{1.0F, 1.0F, 1.0F} {
    if (weights)
        weights_ = {(*weights)[0], (*weights)[1], (*weights)[2]};
    for (unsigned symbol = 0; symbol < Palette::kSlots; ++symbol) {
        const auto byte = static_cast<unsigned char>(symbol);
        if (!palette.Contains(byte))
            continue;
        const Color& color = palette.Get(byte);
        symbols_.push_back(byte);
        colors_.push_back({color[0], color[1], color[2]});
    }
    if (symbols_.empty()) {
        symbols_.push_back(0);
        colors_.emplace_back();
    }
    for (const Components& color : colors_)
        compared_.push_back(isHsv_ ? toHsv(color) : color);
    const std::size_t padded = (compared_.size() + kLanes - 1) / kLanes * kLanes;
    for (std::size_t component = 0; component < 3; ++component) {
        lanes_[component].assign(padded, std::numeric_limits<float>::infinity());
        for (std::size_t i = 0; i < compared_.size(); ++i)
            lanes_[component][i] = compared_[i][component];
    }
}

PaletteMatcher::Components PaletteMatcher::toHsv(const Components& rgb) {
    const Tuple<3, float> hsv = Color{rgb[0], rgb[1], rgb[2]}.ToHSV();
    return {hsv[0], hsv[1], hsv[2]};
}

// Distances are never negative, so their bits compare as the numbers do, and integers are what
// every machine compares and selects in vectors. Each lane keeps its first nearest entry.
std::size_t PaletteMatcher::findAmongAll(const Components& q) const {
    std::int32_t best[kLanes];
    std::int32_t entry[kLanes] = {};
    std::fill_n(best, kLanes, std::numeric_limits<std::int32_t>::max());
    const float* const c0 = lanes_[0].data();
    const float* const c1 = lanes_[1].data();
    const float* const c2 = lanes_[2].data();
    const Components w = weights_;
    const std::size_t count = lanes_[0].size();
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

void PaletteMatcher::fillCell(Cell& cell, const Place& place) const {
    Components centre{};
    Components reach{}; // of the cell from its centre
    for (std::size_t c = 0; c < 3; ++c) {
        const std::uint32_t interval = kFirstCell + place[c] % kCellsPerSide;
        const auto begin = std::bit_cast<float>(interval << kCellBits);
        const auto end = std::bit_cast<float>((interval + 1) << kCellBits);
        const float distance = 0.5F * (begin + end) - kNearest;
        centre[c] = place[c] < kCellsPerSide ? kMiddle + distance : kMiddle - distance;
        reach[c] = 0.5F * (end - begin) + kRelativeError * end;
    }
    std::array<bool, Palette::kSlots> isPossible;
    const bool isKnown = findPossible(centre, reach, isPossible);
    std::uint32_t count = 0;
    for (std::size_t i = 0; i < compared_.size(); ++i) {
        if (!isPossible[i])
            continue;
        if (count < Cell::kMost)
            cell.entries[count] = static_cast<std::uint8_t>(i);
        ++count;
    }
    cell.count = isKnown && count <= Cell::kMost ? count : Cell::kTooMany;
    for (std::size_t i = count; i < Cell::kMost; ++i)
        cell.entries[i] = cell.entries[count - 1];
}

// At an offset t from the centre, the squared distances of an entry and of the rival, the entry
// nearest to the centre, differ by what they differ at the centre less 2 t (entry - rival), all
// weighted. An entry can win only where that is not positive. What rounding might hide, here or in
// the distances compared later, counts as possible.
bool PaletteMatcher::findPossible(const Components& centre, const Components& reach,
                                  std::array<bool, Palette::kSlots>& isPossible) const {
    const Components rival = compared_[findAmongAll(centre)];
    float rivalSquare = 0.0F;
    float rivalMost = 0.0F; // in the whole cell
    for (std::size_t c = 0; c < 3; ++c) {
        const float difference = std::fabs(rival[c] - centre[c]);
        rivalSquare += square(difference * weights_[c]);
        rivalMost += square((difference + reach[c]) * weights_[c]);
    }
    for (std::size_t i = 0; i < compared_.size(); ++i) {
        float entrySquare = 0.0F;
        float change = 0.0F;
        for (std::size_t c = 0; c < 3; ++c) {
            const float component = lanes_[c][i];
            entrySquare += square((component - centre[c]) * weights_[c]);
            change += 2.0F * std::fabs(reach[c] * weights_[c]) *
                      std::fabs((component - rival[c]) * weights_[c]);
        }
        const float doubt = kRelativeError * (entrySquare + rivalMost) + kLeastSquare;
        isPossible[i] = !(entrySquare - rivalSquare - change > doubt);
    }
    return rivalMost < kMostSquare;
}

} // namespace VORN
