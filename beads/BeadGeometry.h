#pragma once

#include "beads/Pattern.h"
#include "core/Hyperrectangle.h"

#include <numbers>

namespace VORN {

/// Where the beads of a layer lie, in bead coordinates: one unit is one bead pitch, x points to the
/// right and y to the next row. A content position is an index into a layer's content.
///
/// A style that is none is a `SupportException` everywhere.
class BeadGeometry {
public:
    BeadGeometry(PatternStyle style, const Tuple<2, unsigned>& size);

    /// The position of the bead at a content position. No bead lies in a layer of width 0.
    Point<2, float> position(std::size_t i) const;

    /// The position of the bead in a column of content characters and a row of a square or hex
    /// layer.
    Point<2, float> gridPosition(std::size_t column, std::size_t row) const {
        if (style_ == PatternStyle::Hex)
            return {0.5 * static_cast<double>(column),
                    std::numbers::sqrt3 * 0.5 * static_cast<double>(row)};
        return {column, row};
    }

    /// The first content position at or after `i` that is no blank offset character, at most `end`.
    std::size_t nextBead(std::size_t i, std::size_t end) const;

    /// The box around the positions of a complete layer; empty at the origin for an empty layer.
    Hyperrectangle<2, float> box() const;

    PatternStyle style() const { return style_; }
    /// Content characters in a row of a square or hex layer.
    std::size_t rowLength() const { return rowLength_; }

private:
    PatternStyle style_;
    Tuple<2, unsigned> size_;
    std::size_t rowLength_;
};

/// Calls `visit(i)` for the content position of every bead of a layer, in ascending order.
template <class Visit>
void forEachBead(const BeadGeometry& geometry, std::size_t contentLength, Visit visit) {
    for (std::size_t i = geometry.nextBead(0, contentLength); i < contentLength;
         i = geometry.nextBead(i + 1, contentLength))
        visit(i);
}

/// The radius of ring `ring` of a circle layer, in bead pitches; that of the centre is 0.
float ringRadius(std::size_t ring);

/// The ring, counted from the centre, that holds content position `i` of a circle layer.
std::size_t ringOf(std::size_t i);

} // namespace VORN
