#pragma once

#include "beads/LayerDrawing.h"

#include <cstdint>
#include <vector>

namespace VORN {

/// The pixels of a disc: all whose centres lie no farther from the disc's centre than its radius.
///
/// Which these are depends only on the radius and on where the disc's centre lies within its own
/// pixel. So one disc serves all beads whose centres lie at the same place in their pixels; its
/// rows and columns count from the pixel of the centre.
class Disc {
public:
    /// Pixels side by side, `last` excluded.
    struct Run {
        std::int64_t first;
        std::int64_t last;
    };

    /// The disc whose centre is `x` and `y`, each 0.0 up to 1.0, away from the corner of its pixel.
    /// All three are in pixels.
    Disc(double x, double y, double radius);

    /// The first row that may hold pixels of the disc; mostly negative.
    std::int64_t firstRow() const { return firstRow_; }
    /// The row behind the last that may hold pixels.
    std::int64_t lastRow() const { return firstRow_ + static_cast<std::int64_t>(runs_.size()); }
    /// The disc's pixels in a row from `firstRow` up to, but not including, `lastRow`.
    const Run& run(std::int64_t row) const {
        return runs_[static_cast<std::size_t>(row - firstRow_)];
    }

private:
    std::int64_t firstRow_;
    std::vector<Run> runs_; // by row
};

/// Paints every bead whose symbol the palette defines as a disc of `radius` pixels, and all other
/// pixels in `background`. `picture` has the size of `frame` and 3 channels.
void paintDiscs(const LayerView& layer, const LayerFrame& frame, float radius,
                const Palette& palette, const Rgb& background, Picture& picture);

} // namespace VORN
