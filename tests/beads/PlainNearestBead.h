#pragma once

#include "beads/BeadGeometry.h"
#include "beads/Pattern.h"

#include <optional>

namespace VORN {

/// What `NearestBead` finds, by a walk over all beads.
inline std::optional<std::size_t> nearestByWalk(const LayerView& layer,
                                                const Point<2, float>& point) {
    const BeadGeometry geometry{layer.shape};
    std::optional<std::size_t> best;
    float distance = 0.0F;
    for (const Bead& bead : layer.beads()) {
        const float here = squaredDistance(geometry.position(bead), point);
        if (best && !(here < distance))
            continue;
        best = bead.position;
        distance = here;
    }
    return best;
}

} // namespace VORN
