#pragma once

#include "beads/PaletteMatcher.h"
#include "beads/Picture.h"

#include <string>

namespace VORN {

/// The picture's pixels, from the top row on, as palette symbols, the error of each spread over its
/// neighbours with the weights of Floyd and Steinberg. Deliberately, column 0 leaves nothing to the
/// row below.
std::string dither(const PictureView& picture, const PaletteMatcher& matcher);

} // namespace VORN
