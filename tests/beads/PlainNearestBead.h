#pragma once

#include "beads/BeadGeometry.h"

#include <optional>

namespace VORN {

/// What `NearestBead` finds, by a walk over all beads.
inline std::optional<std::size_t> nearestByWalk(const BeadGeometry& geometry, std::size_t length,
                                                const Point<2, float>& point) {
    std::optional<std::size_t> best;
    float distance = 0.0F;
    forEachBead(geometry, length, [&](std::size_t i) {
        const float here = squaredDistance(geometry.position(i), point);
        if (best && !(here < distance))
            return;
        best = i;
        distance = here;
    });
    return best;
}

} // namespace VORN
