#pragma once

#include "beads/Palette.h"
#include "beads/Picture.h"

namespace VORN {

/// A palette of the distinct colours of a picture, row by row from the top left, under the symbols
/// 0-9, a-z and A-Z.
///
/// When these 62 are used up, every further colour deliberately replaces the one of "Z".
Palette generatePalette(const PictureView& picture);

} // namespace VORN
