#pragma once

#include "beads/ColorBox.h"
#include "beads/ColorCells.h"
#include "beads/Pattern.h"

#include <optional>

namespace VORN {

/// Gives every bead of `content`, a layer of that `shape`, the symbol of the palette colour nearest
/// to the picture at its place.
///
/// The box of the layer is laid over the picture, corner pixels' centres in its corners, the first
/// text row at the picture's top; between pixels the picture is interpolated. Beads on colours of
/// `transparent`, where given, stay as they are, and so do all beads of an empty picture. Each
/// distinct colour is matched once.
void matchBeads(const PictureView& picture, const PaletteMatcher& matcher,
                const std::optional<ColorBox>& transparent, const LayerShape& shape,
                std::string& content);

} // namespace VORN
