#include "beads/LayerFilling.h"

#include "beads/BeadGeometry.h"
#include "beads/NearestBead.h"

namespace VORN {

void fillWithPalette(const Palette& palette, const LayerShape& shape, std::string& content) {
    auto entry = palette.begin();
    for (const Bead& bead : shape.beads(content.size())) {
        if (entry == palette.end())
            return;
        content[bead.position] = (*entry).symbol;
        ++entry;
    }
}

void reshapeLayer(const LayerView& input, const LayerShape& shape, std::string& content) {
    const BeadGeometry geometry{shape};
    const Hyperrectangle<2, float> box = BeadGeometry{input.shape}.box();
    const Vector<2, float> offset = box.centre() - geometry.box().centre();
    const NearestBead nearestBead{input};
    for (const Bead& bead : shape.beads(content.size())) {
        const Point<2, float> place = geometry.position(bead) + offset;
        if (!box.contains(place))
            continue;
        if (const auto nearest = nearestBead.find(place))
            content[bead.position] = input.content[*nearest];
    }
}

} // namespace VORN
