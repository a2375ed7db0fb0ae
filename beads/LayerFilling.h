#pragma once

#include "beads/Palette.h"
#include "beads/Pattern.h"

namespace VORN {

/// Gives the beads of a layer, from the first on, one symbol of the palette each in ascending order
/// until symbols or beads run out; the other beads stay as they are.
void fillWithPalette(const Palette& palette, const LayerShape& shape, std::string& content);

/// Carries the symbols of one layer over onto another, the centres of their boxes laid onto each
/// other.
///
/// Every bead of `content`, a layer of that `shape`, that then lies in the box of `input`, whose
/// far edges do not belong to it, takes the symbol of the nearest bead; the others stay as they
/// are.
void reshapeLayer(const LayerView& input, const LayerShape& shape, std::string& content);

} // namespace VORN
