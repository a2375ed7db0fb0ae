#include "beads/LayerFilling.h"

#include "beads/BeadGeometry.h"
#include "beads/NearestBead.h"

namespace VORN {

void fillWithPalette(const Palette& palette, PatternStyle style, Pattern::Layer& layer) {
    const BeadGeometry geometry{style, layer.size};
    const std::size_t end = layer.content.size();
    std::size_t bead = geometry.nextBead(0, end);
    for (unsigned symbol = 0; symbol < Palette::kSlots && bead < end; ++symbol) {
        if (!palette.Contains(static_cast<unsigned char>(symbol)))
            continue;
        layer.content[bead] = static_cast<char>(symbol);
        bead = geometry.nextBead(bead + 1, end);
    }
}

void reshapeLayer(PatternStyle inputStyle, const Pattern::Layer& input, PatternStyle outputStyle,
                  Pattern::Layer& output) {
    const BeadGeometry geometry{outputStyle, output.size};
    const Hyperrectangle<2, float> box = BeadGeometry{inputStyle, input.size}.box();
    const Vector<2, float> offset = box.centre() - geometry.box().centre();
    const NearestBead nearestBead{inputStyle, input};
    forEachBead(geometry, output.content.size(), [&](std::size_t i) {
        const Point<2, float> place = geometry.position(i) + offset;
        if (!box.contains(place))
            return;
        if (const auto nearest = nearestBead.find(place))
            output.content[i] = input.content[*nearest];
    });
}

} // namespace VORN
