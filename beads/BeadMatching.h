#pragma once

#include "beads/ColorBox.h"
#include "beads/ColorCells.h"
#include "beads/Pattern.h"

#include <optional>

namespace VORN {

/// Gives every bead the symbol of the palette colour that is nearest to the picture at its place.
///
/// `content` is that of a layer of `shape`. The box of the layer is laid over the picture so that
/// the centres of the picture's corner pixels lie in the corners of the box and the first row of
/// the text is at the top. Between pixel centres the picture is interpolated. Beads where the
/// colour is within `transparent`, if that is given, become `kNoBead`. An empty picture changes
/// nothing. Each distinct colour is matched once, unless there are only a few beads.
void matchBeads(const PictureView& picture, const PaletteMatcher& matcher,
                const std::optional<ColorBox>& transparent, const LayerShape& shape,
                std::string& content);

} // namespace VORN
