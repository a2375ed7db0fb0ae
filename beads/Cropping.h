#pragma once

#include "beads/ColorBox.h"
#include "core/Hyperrectangle.h"

namespace VORN {

/// A region of a picture in pixels, counted from its top left corner, y downwards.
using PictureRegion = Hyperrectangle<2, unsigned>;

/// The colour of the pixel (x, y), counted from the top left corner; outside the picture this is a
/// `BoundException`.
Color pickColor(const PictureView& picture, unsigned x, unsigned y);

/// The part of `picture` that lies in `region`, not copied; a region that leaves the picture is a
/// `BoundException`.
PictureView crop(const PictureView& picture, const PictureRegion& region);

/// The smallest region around all pixels outside `transparent`; without any, the whole picture.
PictureRegion opaqueRegion(const PictureView& picture, const ColorBox& transparent);

} // namespace VORN
