#pragma once

#include "beads/LazyTable.h"
#include "beads/PaletteMatcher.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <span>
#include <variant>

namespace VORN {

/// Finds the nearest colour of a palette in less time than a `PaletteMatcher`, with the same
/// result.
///
/// **The idea.** The space in which colours are compared, RGB or HSV, is divided into cells. For
/// every cell that a colour falls into, it is worked out once which palette colours can be the
/// nearest to any point of it. These few are its candidates; from then on only they are compared.
///
/// **Why no winner is missed.** Let c be the centre of a cell, r the palette colour nearest to c,
/// the rival, and e any other. A distance is the sum of the squared differences in each coordinate,
/// each difference first multiplied by its weight w. At an offset t from c
///
///     distance(c + t, e) - distance(c + t, r) =
///         distance(c, e) - distance(c, r) - 2 sum of w^2 t (e - r)
///
/// Where e is the nearest, this difference is not positive. No coordinate of t is larger than the
/// cell's reach, which is half its side, so that the last term is at most
///
///     2 sum of w^2 reach |e - r|
///
/// An e that is farther from the centre than the rival by more than this is nowhere the nearest.
///
/// So far for exact numbers. Rounding, here and when candidates are compared, is far below a
/// hundred-thousandth of the largest distance involved; an e that fails by less than that remains a
/// candidate. Where numbers are so large that squares may overflow, all entries are compared.
/// Candidates keep the order of their symbols and are compared by the same function as all entries
/// are, so that equal distances are decided in the same way.
///
/// **The cells.** The number of a cell on an axis is the upper bits of a float: of the coordinate's
/// distance from 0.5 with 0.25 added. That makes eight cells to a factor of two: among the colours
/// that a screen shows they are 1/32 to 1/16 wide, and they widen farther out, where only dithering
/// leads. Colours outside of all cells, and those in a cell with more candidates than it has room
/// for, are compared with all entries.
///
/// **What it costs.** Each cell has 16 bytes, but memory is taken only for pages with cells that
/// were needed. Working out the candidates of a cell takes as long as comparing a handful of
/// colours with all entries. That pays off for a picture, not for a few colours, so the first ones
/// are always compared with all entries. Benchmark NearestColor: among 62 palette colours the
/// nearest is found in 13 ns instead of 55, and in HSV in 30 ns instead of 78.
class ColorCells {
public:
    /// How many colours are compared with all entries before any cell is used.
    static constexpr unsigned kFirstColors = 256;
    /// How many candidates a cell has room for.
    static constexpr std::size_t kMostCandidates = 12;

    /// `matcher` is borrowed and must outlive the cells.
    explicit ColorCells(const PaletteMatcher& matcher)
        : matcher_{&matcher},
          places_{&matcher.place(0)} {}

    /// The entry nearest to a colour, which is given by red, green and blue. If several are equally
    /// near, the lowest of them.
    std::size_t nearest(const ColorPlace& rgb) {
        if (const auto* hsv = std::get_if<HsvDistance>(&matcher_->distance()))
            return find(*hsv, hsv->place(rgb));
        return find(RgbDistance{}, rgb);
    }

    /// The candidates of the cell that `place` lies in, in ascending order. Empty if all entries
    /// are compared there.
    std::span<const std::uint8_t> candidates(const ColorPlace& place);

private:
    static constexpr float kMiddle = 0.5F;
    static constexpr float kAdded = 0.25F;    // to the distance from the middle
    static constexpr unsigned kCellBits = 20; // the lower bits of a float, alike in a whole cell
    static constexpr std::uint32_t kFirstCell = std::bit_cast<std::uint32_t>(kAdded) >> kCellBits;
    static constexpr std::uint32_t kCellsPerSide = 64; // on each axis, on each side of the middle
    static constexpr std::uint32_t kCellsAcross = 2 * kCellsPerSide;
    static constexpr std::size_t kCells = std::size_t{kCellsAcross} * kCellsAcross * kCellsAcross;

    struct Cell {
        static constexpr std::size_t kGroup = 4; // candidates that are compared without a check
        static constexpr std::uint32_t kCompareAll = ~0U;
        static_assert(kMostCandidates % kGroup == 0);

        std::uint32_t count;                               // of candidates; 0: not yet known
        std::array<std::uint8_t, kMostCandidates> entries; // behind the last it is repeated
    };
    /// The number of a cell on each axis: from the middle upwards, then from the middle downwards.
    using CellNumbers = std::array<std::uint32_t, 3>;

    /// How many cells a coordinate is away from the middle. It lies outside of all cells if these
    /// are `kCellsPerSide` or more.
    static std::uint32_t cellsFromMiddle(float coordinate) {
        const float distance = std::fabs(coordinate - kMiddle) + kAdded;
        return (std::bit_cast<std::uint32_t>(distance) >> kCellBits) - kFirstCell;
    }

    /// The cell that `place` lies in, with its candidates; null if it lies outside of all cells.
    Cell* cellAt(const ColorPlace& place) {
        CellNumbers numbers{};
        for (std::size_t c = 0; c < numbers.size(); ++c) {
            const std::uint32_t cells = cellsFromMiddle(place[c]);
            if (cells >= kCellsPerSide)
                return nullptr;
            numbers[c] = cells + (place[c] < kMiddle ? kCellsPerSide : 0);
        }
        Cell& cell = cells_[(numbers[0] * kCellsAcross + numbers[1]) * kCellsAcross + numbers[2]];
        if (cell.count == 0)
            findCandidates(numbers, cell);
        return &cell;
    }

    template <class Distance>
    std::size_t find(const Distance& distance, const ColorPlace& place) {
        if (asked_ < kFirstColors) {
            ++asked_;
            return matcher_->nearest(place);
        }
        const Cell* const cell = cellAt(place);
        if (cell == nullptr || cell->count == Cell::kCompareAll)
            return matcher_->nearest(place);
        std::size_t winner = 0;
        float least = std::numeric_limits<float>::infinity();
        for (std::size_t start = 0; start < cell->count; start += Cell::kGroup)
            for (std::size_t i = start; i < start + Cell::kGroup; ++i) {
                const std::size_t entry = cell->entries[i];
                const float candidate = distance(place, places_[entry]);
                winner = candidate < least ? entry : winner;
                least = candidate < least ? candidate : least;
            }
        return winner;
    }

    void findCandidates(const CellNumbers& numbers, Cell& cell) const;

    const PaletteMatcher* matcher_;
    const ColorPlace* places_; // of the matcher, by entry
    unsigned asked_ = 0;       // up to `kFirstColors`
    LazyTable<Cell, kCells> cells_;
};

} // namespace VORN
