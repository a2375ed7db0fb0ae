#pragma once

#include "beads/ColorBox.h"
#include "core/Hyperrectangle.h"

namespace VORN {

/// A region of a picture, in pixels. It is counted from the picture's top left corner, y downwards.
using PictureRegion = Hyperrectangle<2, unsigned>;

/// The colour of the pixel (x, y), counted from the top left corner. A pixel outside of the picture
/// is a `BoundException`.
Color pickColor(const PictureView& picture, unsigned x, unsigned y);

/// A view of the part of `picture` that lies in `region`. A region that reaches beyond the picture
/// is a `BoundException`.
PictureView crop(const PictureView& picture, const PictureRegion& region);

/// The smallest region that holds all pixels whose colour is outside `transparent`. If there is no
/// such pixel, it is the whole picture.
PictureRegion opaqueRegion(const PictureView& picture, const ColorBox& transparent);

} // namespace VORN
