#pragma once

#include "beads/Picture.h"

namespace VORN {

/// `picture` brought to `width` x `height` pixels; neither it nor the result may be empty.
///
/// Where an axis shrinks, each pixel is the average of the area it covers; where it grows, it is
/// interpolated linearly between pixel centres. Sums are exact and rounded to nearest once. The
/// channels stay as many as they are.
Picture scale(const PictureView& picture, unsigned width, unsigned height);

} // namespace VORN
