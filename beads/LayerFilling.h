#pragma once

#include "beads/Palette.h"
#include "beads/Pattern.h"

namespace VORN {

/// Gives the first bead of a layer the palette's first symbol, the second bead the second one, and
/// so on until symbols or beads run out. The other beads stay as they are.
void fillWithPalette(const Palette& palette, const LayerShape& shape, std::string& content);

/// Copies the symbols of one layer to another, with the centres of both layers laid on each other.
///
/// `content` is that of a layer of `shape`. Each of its beads that then lies in the box of `input`
/// takes the symbol of the nearest bead of `input`; the right and lower edges do not belong to the
/// box. The other beads stay as they are.
void reshapeLayer(const LayerView& input, const LayerShape& shape, std::string& content);

} // namespace VORN
