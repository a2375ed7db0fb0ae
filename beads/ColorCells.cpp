#include "beads/ColorCells.h"

namespace VORN {

namespace {

// What rounding may do to distances is far less than kRelativeError, as long as squares are within
// these bounds: below they lose digits, above they may become infinite, and so equal.
constexpr float kRelativeError = 1e-5F;
constexpr float kLeastSquare = 1e-30F;
constexpr float kMostSquare = 1e37F;

float square(float number) { return number * number; }

/// The part of the space that a cell takes up.
struct Region {
    ColorPlace centre{};
    ColorPlace reach{}; // from the centre to each side, rounded up
};

/// Compares the entries with the one nearest to the centre of a region.
class Rivalry {
public:
    Rivalry(const PaletteMatcher& matcher, const Region& region)
        : region_{region},
          weights_{std::visit([](const auto& distance) { return distance.weights(); },
                              matcher.distance())},
          rival_{matcher.place(matcher.nearest(region.centre))} {
        for (std::size_t c = 0; c < 3; ++c) {
            const float difference = std::fabs(rival_[c] - region.centre[c]);
            centreSquare_ += square(difference * weights_[c]);
            mostSquare_ += square((difference + region.reach[c]) * weights_[c]);
        }
    }

    /// Whether distances in the region are so small that their rounding is known.
    bool isDecidable() const { return mostSquare_ < kMostSquare; }

    /// Whether an entry at `place` may be the nearest to some place of the region.
    bool mayBeNearest(const ColorPlace& place) const {
        float placeSquare = 0.0F;
        float change = 0.0F; // at most, of the difference of both distances, within the region
        for (std::size_t c = 0; c < 3; ++c) {
            placeSquare += square((place[c] - region_.centre[c]) * weights_[c]);
            change += 2.0F * std::fabs(region_.reach[c] * weights_[c]) *
                      std::fabs((place[c] - rival_[c]) * weights_[c]);
        }
        const float doubt = kRelativeError * (placeSquare + mostSquare_) + kLeastSquare;
        return !(placeSquare - centreSquare_ - change > doubt);
    }

private:
    Region region_;
    ColorPlace weights_;
    ColorPlace rival_;
    float centreSquare_ = 0.0F; // the rival's squared distance from the centre
    float mostSquare_ = 0.0F;   // and at most in the whole region
};

} // namespace

std::span<const std::uint8_t> ColorCells::candidates(const ColorPlace& place) {
    const Cell* const cell = cellAt(place);
    if (cell == nullptr || cell->count == Cell::kCompareAll)
        return {};
    return std::span{cell->entries}.first(cell->count);
}

void ColorCells::findCandidates(const CellNumbers& numbers, Cell& cell) const {
    Region region;
    for (std::size_t c = 0; c < numbers.size(); ++c) {
        const std::uint32_t interval = kFirstCell + numbers[c] % kCellsPerSide;
        const auto begin = std::bit_cast<float>(interval << kCellBits);
        const auto end = std::bit_cast<float>((interval + 1) << kCellBits);
        const float distance = 0.5F * (begin + end) - kAdded;
        region.centre[c] = numbers[c] < kCellsPerSide ? kMiddle + distance : kMiddle - distance;
        region.reach[c] = 0.5F * (end - begin) + kRelativeError * end;
    }
    const Rivalry rivalry{*matcher_, region};
    std::uint32_t count = 0;
    for (std::size_t entry = 0; entry < matcher_->entryCount(); ++entry) {
        if (!rivalry.mayBeNearest(matcher_->place(entry)))
            continue;
        if (count < kMostCandidates)
            cell.entries[count] = static_cast<std::uint8_t>(entry);
        ++count;
    }
    for (std::size_t i = count; i < kMostCandidates; ++i)
        cell.entries[i] = cell.entries[count - 1];
    cell.count = rivalry.isDecidable() && count <= kMostCandidates ? count : Cell::kCompareAll;
}

} // namespace VORN
