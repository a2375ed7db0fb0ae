#pragma once

#include "beads/Palette.h"

#include <variant>
#include <vector>

namespace VORN {

/// The distance by which colours are compared.
using ColorDistance = std::variant<RgbDistance, HsvDistance>;

/// Finds the palette colour nearest to a colour by comparing it with all of them.
///
/// The colours of the palette are numbered from 0 in the order of their symbols; these numbers are
/// called entries. An empty palette has one entry, the symbol 0 in black.
class PaletteMatcher {
public:
    PaletteMatcher(const Palette& palette, const ColorDistance& distance);

    /// The entry nearest to `place`, which is what the distance's `place` makes of a colour; the
    /// lowest of several.
    std::size_t nearest(const ColorPlace& place) const;

    std::size_t entryCount() const { return symbols_.size(); }
    char symbol(std::size_t entry) const { return symbols_[entry]; }
    /// Red, green and blue of an entry.
    const ColorPlace& color(std::size_t entry) const { return colors_[entry]; }
    /// Where an entry lies for the distance.
    const ColorPlace& place(std::size_t entry) const { return places_[entry]; }
    const ColorDistance& distance() const { return distance_; }

private:
    ColorDistance distance_;
    std::vector<char> symbols_; // by entry, as all that follows
    std::vector<ColorPlace> colors_;
    std::vector<ColorPlace> places_;
    std::array<std::vector<float>, 3> coordinates_; // of `places_`, one after the other
};

} // namespace VORN
