#pragma once

#include "beads/PaletteMatcher.h"
#include "beads/Picture.h"

#include <string>

namespace VORN {

/// Matches every pixel with the palette and spreads its error over the neighbours that follow, with
/// the weights of Floyd and Steinberg.
///
/// Returns the symbols of the pixels row by row, from the top. Deliberately, pixels of column 0
/// pass nothing on to the row below.
std::string dither(const PictureView& picture, const PaletteMatcher& matcher);

} // namespace VORN
