#pragma once

#include "beads/Palette.h"
#include "beads/Pattern.h"
#include "beads/Picture.h"
#include "core/Hyperrectangle.h"

namespace VORN {

/// Where a layer lies in its picture: beads one pitch apart, half a pitch of margin around them.
///
/// Places in the picture have y 0 at the bottom; the first text row of a layer is at the top.
class LayerFrame {
public:
    /// `beadSize` is the diameter of a bead in pixels, above 0; a pitch is 1.25 times as long. A
    /// picture with more than 2^32 - 1 pixels along an axis is an `AllocateException`.
    LayerFrame(const Hyperrectangle<2, float>& box, float beadSize);

    unsigned width() const { return width_; }   // pixels
    unsigned height() const { return height_; } // pixels

    /// The place of a bead position in the picture.
    Point<2, float> toPicture(const Point<2, float>& position) const;
    /// The bead coordinates of a place in the picture.
    Point<2, float> toBeads(const Point<2, float>& place) const;

private:
    float pitch_; // pixels
    float offsetX_;
    float offsetY_;
    unsigned width_;
    unsigned height_;
};

/// Draws a layer into `picture`, which takes the size of its `LayerFrame`.
///
/// Beads of more than 1.5 pixels are discs on `background`: every pixel whose centre lies within
/// half a bead of the bead's, the edge included. Smaller ones fill the picture: each pixel takes
/// the colour of the bead nearest to its corner (column, row). Beads whose symbol the palette does
/// not hold show the background.
void drawLayer(const LayerView& layer, const Palette& palette, float beadSize,
               const Color& background, Picture& picture);

} // namespace VORN
