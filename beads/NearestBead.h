#pragma once

#include "beads/BeadGeometry.h"
#include "beads/Pattern.h"

#include <optional>
#include <vector>

namespace VORN {

/// Finds the bead of a layer that is nearest to a point.
///
/// Gives exactly what a walk over all beads with `squaredDistance` in single precision gives, the
/// lowest content position on equal distances, but looks only at the few beads around a point that
/// lies in the layer's box or up to one pitch outside; the benchmark `NearestBead` shows what each
/// costs.
class NearestBead {
public:
    explicit NearestBead(const LayerView& layer);

    /// The content position of the nearest bead; nothing where the layer has no beads.
    std::optional<std::size_t> find(const Point<2, float>& point) const;

private:
    class Best;

    void searchGrid(const Point<2, float>& point, Best& best) const;
    void searchRings(const Point<2, float>& point, Best& best) const;
    void searchRing(std::size_t ring, double turn, Best& best) const;
    void walk(Best& best) const;

    BeadGeometry geometry_;
    std::size_t length_;                  // of the layer's content
    std::size_t rows_;                    // or rings, the last perhaps in part
    Hyperrectangle<2, float> near_;       // where a search around the point finds the nearest bead
    std::vector<Point<2, float>> ringed_; // the positions of a circle layer, costly to compute
};

} // namespace VORN
