#pragma once

#include "beads/Palette.h"
#include "beads/Pattern.h"
#include "beads/Picture.h"
#include "core/Hyperrectangle.h"

namespace VORN {

/// Where a layer lies in the picture that shows it, with a margin of half a pitch around the
/// outermost beads' positions.
///
/// Places in the picture are in pixels, with y 0 at the bottom edge; the first row of the layer's
/// text is at the top.
class LayerFrame {
public:
    /// `box` is that of the layer's geometry. `beadSize` is the diameter of a bead in pixels, above
    /// 0; a pitch is 1.25 times as long. A picture of more than 2^32 - 1 pixels along an axis is an
    /// `AllocateException`.
    LayerFrame(const Hyperrectangle<2, float>& box, float beadSize);

    unsigned width() const { return width_; }   // pixels
    unsigned height() const { return height_; } // pixels

    /// The place in the picture that belongs to bead coordinates.
    Point<2, float> toPicture(const Point<2, float>& position) const;
    /// The bead coordinates that belong to a place in the picture.
    Point<2, float> toBeads(const Point<2, float>& place) const;

private:
    float pitch_; // pixels
    float offsetX_;
    float offsetY_;
    unsigned width_;
    unsigned height_;
};

/// Draws a layer into `picture`, which is resized as `LayerFrame` says.
///
/// Beads of more than 1.5 pixels in diameter become discs on `background`: a disc has every pixel
/// whose centre lies within half a bead of the bead's centre, the edge included. Smaller beads fill
/// the picture: each pixel takes the colour of the bead nearest to its corner (column, row). Beads
/// whose symbol the palette does not define show the background. A picture too large is an
/// `AllocateException`.
void drawLayer(const LayerView& layer, const Palette& palette, float beadSize,
               const Color& background, Picture& picture);

} // namespace VORN
