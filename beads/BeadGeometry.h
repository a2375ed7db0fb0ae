#pragma once

#include "beads/LayerShape.h"
#include "core/Hyperrectangle.h"

#include <numbers>

namespace VORN {

/// Where the beads of a layer lie, in bead coordinates: one unit is one bead pitch, x points to the
/// right and y to the next row.
class BeadGeometry {
public:
    /// A style that the table of styles does not have is a `SupportException`.
    explicit BeadGeometry(const LayerShape& shape);

    const LayerShape& shape() const { return shape_; }

    Point<2, float> position(const Bead& bead) const {
        return shape_.style() == PatternStyle::Circle ? ringPosition(bead.row, bead.column)
                                                      : gridPosition(bead.row, bead.column);
    }
    /// The position of the bead in a column of content characters of a row of a square or hex
    /// layer.
    Point<2, float> gridPosition(std::size_t row, std::size_t column) const {
        if (shape_.style() == PatternStyle::Hex)
            return {0.5 * static_cast<double>(column), kHexRowPitch * static_cast<double>(row)};
        return {column, row};
    }

    /// The box around the positions of a complete layer; empty at the origin for an empty layer.
    Hyperrectangle<2, float> box() const;

    /// The distance of two rows of a hex layer.
    static constexpr double kHexRowPitch = std::numbers::sqrt3 * 0.5;
    /// The radius of ring `ring` of a circle layer, in bead pitches; that of the centre is 0.
    static float ringRadius(std::size_t ring);

private:
    static Point<2, float> ringPosition(std::size_t ring, std::size_t bead);

    LayerShape shape_;
};

} // namespace VORN
