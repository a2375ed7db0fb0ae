#pragma once

#include "beads/LazyTable.h"
#include "beads/Palette.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

namespace VORN {

/// Finds the palette colour nearest to a colour.
///
/// The distance is `rgbDistance`, or `hsvDistance` when weights (hue, saturation, value) are given.
///
/// The space of what is compared, RGB or HSV, is divided into cells. For every cell that a colour
/// falls into, the matcher finds out once which few palette colours can be the nearest there; from
/// then on it compares only those.
class PaletteMatcher {
public:
    using Weights = std::optional<Vector<3, float>>;
    /// Three components; the fourth is 0 and completes a vector of the machine.
    using Components = std::array<float, 4>;

    PaletteMatcher(const Palette& palette, const Weights& weights);

    /// The symbol of the nearest colour, the lowest of several; 0 when the palette is empty.
    ///
    /// The first colours asked for are compared with all, since a picture that has only a few does
    /// not make up for the memory of the cells.
    unsigned char nearest(const Color& color) const {
        const Components rgb{color[0], color[1], color[2]};
        if (asked_ < kFew) {
            ++asked_;
            return symbols_[findAmongAll(isHsv_ ? toHsv(rgb) : rgb)];
        }
        return symbols_[nearestEntry(rgb)];
    }

    /// As `nearest`; an entry counts the palette's colours in the order of their symbols. An empty
    /// palette has one entry, the symbol 0 in black.
    std::size_t nearestEntry(const Components& rgb) const {
        return isHsv_ ? find<true>(toHsv(rgb)) : find<false>(rgb);
    }
    unsigned char symbol(std::size_t entry) const { return symbols_[entry]; }
    const Components& color(std::size_t entry) const { return colors_[entry]; }

private:
    // A cell lies between two bounds in every component. Bounds are counted from the middle between
    // 0 and 1; kNearest is added to a distance and the upper bits of the sum number the cells, so
    // that they are fine among the palette's colours and widen where dithering may stray to.
    static constexpr float kMiddle = 0.5F;
    static constexpr float kNearest = 0.25F;
    static constexpr unsigned kCellBits = 20; // of a float, those within a cell: 8 cells an octave
    static constexpr std::uint32_t kFirstCell = std::bit_cast<std::uint32_t>(kNearest) >> kCellBits;
    static constexpr std::uint32_t kCellsPerSide = 64;
    static constexpr std::uint32_t kCellsAcross = 2 * kCellsPerSide;

    /// The entries that can be the nearest to a colour in a cell, ascending.
    struct Cell {
        static constexpr std::size_t kMost = 12;
        static constexpr std::size_t kGroup = 4; // compared without asking for the end
        static constexpr std::uint32_t kTooMany = ~0U;
        static_assert(kMost % kGroup == 0);

        std::uint32_t count;                     // 0: not yet known
        std::array<std::uint8_t, kMost> entries; // the last one fills what is left
    };
    static constexpr unsigned kFew = 256;       // the first colours, for which no cell is filled
    using Place = std::array<std::uint32_t, 3>; // of a cell: below the middle, from kCellsPerSide

    static Components toHsv(const Components& rgb);

    /// How far from the middle a component is, in cells; kCellsPerSide or more: outside of them.
    static std::uint32_t cellsFromMiddle(float component) {
        const float distance = std::fabs(component - kMiddle) + kNearest;
        return (std::bit_cast<std::uint32_t>(distance) >> kCellBits) - kFirstCell;
    }

    template <bool kIsWeighted>
    float distance(const Components& a, const Components& b) const {
        float squares[3];
        for (std::size_t i = 0; i < 3; ++i) {
            const float difference = kIsWeighted ? (a[i] - b[i]) * weights_[i] : a[i] - b[i];
            squares[i] = difference * difference;
        }
        return squares[0] + squares[1] + squares[2];
    }

    template <bool kIsWeighted>
    std::size_t find(const Components& q) const {
        Place place{};
        for (std::size_t c = 0; c < 3; ++c) {
            const std::uint32_t cells = cellsFromMiddle(q[c]);
            if (cells >= kCellsPerSide)
                return findAmongAll(q);
            place[c] = cells + (q[c] < kMiddle ? kCellsPerSide : 0);
        }
        Cell& cell = cells_[(place[0] * kCellsAcross + place[1]) * kCellsAcross + place[2]];
        if (cell.count == 0)
            fillCell(cell, place);
        if (cell.count == Cell::kTooMany)
            return findAmongAll(q);
        std::size_t winner = 0;
        float least = std::numeric_limits<float>::infinity();
        for (std::size_t start = 0; start < cell.count; start += Cell::kGroup)
            for (std::size_t i = start; i < start + Cell::kGroup; ++i) {
                const std::size_t entry = cell.entries[i];
                const float candidate = distance<kIsWeighted>(q, compared_[entry]);
                winner = candidate < least ? entry : winner;
                least = candidate < least ? candidate : least;
            }
        return winner;
    }
    /// As `find`, by comparison with the whole palette.
    std::size_t findAmongAll(const Components& q) const;
    void fillCell(Cell& cell, const Place& place) const;
    /// Which entries can be the nearest within `reach` of `centre`; false if that is not known.
    bool findPossible(const Components& centre, const Components& reach,
                      std::array<bool, Palette::kSlots>& isPossible) const;

    bool isHsv_;
    Components weights_;                 // 1 for RGB
    std::vector<unsigned char> symbols_; // ascending
    std::vector<Components> colors_;
    std::vector<Components> compared_; // RGB or HSV
    // As `compared_`, by component; padded with infinity to a multiple of kLanes.
    std::array<std::vector<float>, 3> lanes_;
    // These two change while matching, but not what is found.
    mutable unsigned asked_ = 0; // up to kFew
    LazyTable<Cell, std::size_t{kCellsAcross} * kCellsAcross * kCellsAcross> cells_;
};

} // namespace VORN
