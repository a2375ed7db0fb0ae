#pragma once

#include "beads/Palette.h"

#include <array>
#include <variant>
#include <vector>

namespace VORN {

/// The distance by which colours are compared.
using ColorDistance = std::variant<RgbDistance, HsvDistance>;

/// Finds the palette colour nearest to a colour by comparing it with all of them.
///
/// The palette's colours are numbered from 0 in the order of their symbols; such a number is called
/// an entry. An empty palette counts as one with a single entry, the symbol 0 in black.
class PaletteMatcher {
public:
    /// Copies what it needs of `palette`.
    PaletteMatcher(const Palette& palette, const ColorDistance& distance);

    /// The entry nearest to `place`, a colour in the coordinates of the distance. If several are
    /// equally near, the lowest of them.
    std::size_t nearest(const ColorPlace& place) const;

    std::size_t entryCount() const { return symbols_.size(); }
    /// The palette symbol of an entry.
    char symbol(std::size_t entry) const { return symbols_[entry]; }
    /// Red, green and blue of an entry.
    const ColorPlace& color(std::size_t entry) const { return colors_[entry]; }
    /// The coordinates of an entry, as the distance compares them.
    const ColorPlace& place(std::size_t entry) const { return places_[entry]; }
    const ColorDistance& distance() const { return distance_; }

private:
    ColorDistance distance_;
    std::vector<char> symbols_; // by entry, as all members that follow
    std::vector<ColorPlace> colors_;
    std::vector<ColorPlace> places_;
    std::array<std::vector<float>, 3> coordinates_; // the same as `places_`, by coordinate
};

} // namespace VORN
