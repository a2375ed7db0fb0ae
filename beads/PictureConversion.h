#pragma once

#include "beads/Cropping.h"
#include "beads/PaletteMatcher.h"
#include "beads/Pattern.h"

namespace VORN {

/// Sets every bead of the first layer to the palette colour nearest to the picture at its place.
///
/// The box of the layer is laid over the picture, corner pixels' centres in its corners, the first
/// text row at the picture's top; between pixels the picture is interpolated. Beads on colours of
/// `transparent`, where given, stay as they are, and so do all beads of an empty picture.
void matchBeads(const PictureView& picture, const PaletteMatcher& matcher,
                const std::optional<ColorBox>& transparent, Pattern& pattern);

/// The picture's pixels, from the top row on, as palette symbols with error diffusion.
std::string dither(const PictureView& picture, const PaletteMatcher& matcher);

} // namespace VORN
