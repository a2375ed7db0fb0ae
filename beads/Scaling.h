#pragma once

#include "beads/Picture.h"

namespace VORN {

/// Scales `picture` to `width` x `height` pixels; neither it nor the result may be empty.
///
/// Along an axis that shrinks, each new pixel is the average of the area that it covers. Along one
/// that grows, it is interpolated linearly between the centres of old pixels. Sums are exact and
/// rounded once, to the nearest. The number of channels stays. Running out of memory is an
/// `AllocateException` or a `std::bad_alloc`.
Picture scale(const PictureView& picture, unsigned width, unsigned height);

} // namespace VORN
