#pragma once

#include "beads/LayerDrawing.h"

#include <cstdint>
#include <vector>

namespace VORN {

/// The pixels that a disc holds: those whose centres lie within its radius of its centre, the edge
/// included.
///
/// They depend on where within its own pixel the centre lies, and on the radius. So a disc is
/// worked out once for all beads that lie alike in the pixel grid, and counts rows and columns from
/// the pixel of its centre.
class Disc {
public:
    /// Pixels side by side, `last` excluded.
    struct Run {
        std::int64_t first;
        std::int64_t last;
    };

    /// `x` and `y` lead from the corner of the pixel to the centre, 0.0 up to 1.0.
    Disc(double x, double y, double radius);

    /// The rows that may hold pixels, `lastRow` excluded.
    std::int64_t firstRow() const { return firstRow_; }
    std::int64_t lastRow() const { return firstRow_ + static_cast<std::int64_t>(runs_.size()); }
    /// The pixels in a row from `firstRow` up to `lastRow`.
    const Run& run(std::int64_t row) const {
        return runs_[static_cast<std::size_t>(row - firstRow_)];
    }

private:
    std::int64_t firstRow_;
    std::vector<Run> runs_; // by row
};

/// Paints every bead of a layer whose symbol the palette holds as a disc of `radius` pixels, and
/// all other pixels in `background`. `picture` has the size of `frame` and 3 channels.
void paintDiscs(const LayerView& layer, const LayerFrame& frame, float radius,
                const Palette& palette, const Rgb& background, Picture& picture);

} // namespace VORN
