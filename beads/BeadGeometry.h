#pragma once

#include "beads/LayerShape.h"
#include "core/Hyperrectangle.h"

#include <numbers>

namespace VORN {

/// Where the beads of a layer lie, in bead coordinates.
///
/// One unit is one bead pitch; x grows to the right and y towards the next row of the text. The
/// first bead of a square or hex layer lies at the origin, a circle layer has its centre there.
class BeadGeometry {
public:
    /// The geometry of a layer of that shape. A style that is not in `PatternStyle` is a
    /// `SupportException`.
    explicit BeadGeometry(const LayerShape& shape);

    const LayerShape& shape() const { return shape_; }

    /// The position of a bead of the layer.
    Point<2, float> position(const Bead& bead) const {
        return shape_.style() == PatternStyle::Circle ? ringPosition(bead.row, bead.column)
                                                      : gridPosition(bead.row, bead.column);
    }
    /// The position of a bead of a square or hex layer. `column` counts characters of the row, as
    /// `Bead::column` does.
    Point<2, float> gridPosition(std::size_t row, std::size_t column) const {
        return {columnPitch() * static_cast<double>(column), rowPitch() * static_cast<double>(row)};
    }

    /// The distance from one character of a row to the next, in a square or hex layer.
    double columnPitch() const { return shape_.style() == PatternStyle::Hex ? 0.5 : 1.0; }
    /// The distance from one row to the next, in a square or hex layer.
    double rowPitch() const { return shape_.style() == PatternStyle::Hex ? kHexRowPitch : 1.0; }

    /// The smallest box around the bead positions of a complete layer. For a layer without beads it
    /// is an empty box at the origin.
    Hyperrectangle<2, float> box() const;

    /// The radius of ring `ring` of a circle layer, in bead pitches; ring 0, the centre, has radius
    /// 0.
    static float ringRadius(std::size_t ring);

private:
    static constexpr double kHexRowPitch = std::numbers::sqrt3 * 0.5;

    static Point<2, float> ringPosition(std::size_t ring, std::size_t bead);

    LayerShape shape_;
};

} // namespace VORN
