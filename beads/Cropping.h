#pragma once

#include "beads/ColorBox.h"
#include "core/Hyperrectangle.h"
#include "core/Signal.h"

namespace VORN {

/// A picture of bytes (channel, x, y) with 3 channels, owned elsewhere; y 0 is the bottom row.
using PictureView = SignalConstBorrow<3, unsigned char>;
using Picture = SinglaBaseSerializable<3, unsigned char, unsigned char*>;

/// A region of a picture in pixels, counted from its top-left corner, y downwards.
using PictureRegion = Hyperrectangle<2, unsigned>;

/// The colour of the pixel (x, y), counted from the top-left corner; outside the picture this is a
/// `BoundException`.
Color pickColor(const PictureView& picture, unsigned x, unsigned y);

/// Reduces `picture` to `region`; a region that leaves the picture is a `BoundException`.
void crop(Picture& picture, const PictureRegion& region);

/// The smallest region around all pixels outside `transparent`; without any, the whole picture.
PictureRegion opaqueRegion(const PictureView& picture, const ColorBox& transparent);

} // namespace VORN
