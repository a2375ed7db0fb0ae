#pragma once

#include "beads/Palette.h"
#include "beads/Picture.h"

namespace VORN {

/// The distinct colours of a picture in the order of reading, under the symbols 0-9, a-z and A-Z.
///
/// When these 62 are used up, every further colour deliberately takes the place of "Z".
Palette generatePalette(const PictureView& picture);

} // namespace VORN
