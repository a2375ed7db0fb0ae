#include "beads/BeadGeometry.h"

#include "beads/UnitCircle.h"
#include "core/Exception.h"

#include <algorithm>
#include <cmath>

namespace VORN {

namespace {

constexpr float kFullTurn = 6.2831855F;

} // namespace

BeadGeometry::BeadGeometry(const LayerShape& shape) : shape_{shape} {
    if (shape.style() > PatternStyle::Circle)
        throw SupportException{kNoOrigin, "Pattern style not supported. "};
}

float BeadGeometry::ringRadius(std::size_t ring) {
    return ring == 0 ? 0.0F : static_cast<float>(LayerShape::ringLength(ring)) / kFullTurn;
}

Point<2, float> BeadGeometry::ringPosition(std::size_t ring, std::size_t bead) {
    if (ring == 0)
        return {};
    // Deliberately counted from the start of the ring before, which turns ring r by (r - 1) / r of
    // a full turn.
    const std::size_t before = LayerShape::ringBegin(std::max<std::size_t>(ring - 1, 1));
    const std::size_t count = LayerShape::ringBegin(ring) + bead - before;
    const float part =
        static_cast<float>(count) / static_cast<float>(LayerShape::ringLength(ring));
    constexpr double kPi = std::numbers::pi;
    double angle = 2 * kPi * part;
    angle -= 2 * kPi * std::floor((angle + kPi) / (2 * kPi));
    const double radius = ringRadius(ring);
    const auto [cosine, sine] = unitCirclePoint(angle);
    return {radius * cosine, radius * sine};
}

Hyperrectangle<2, float> BeadGeometry::box() const {
    const Tuple<2, unsigned>& size = shape_.size();
    if (size[0] == 0 || size[1] == 0)
        return {};
    const double columns = size[0];
    const double rows = size[1];
    if (shape_.style() == PatternStyle::Square)
        return {{}, {columns - 1, rows - 1}};
    if (shape_.style() == PatternStyle::Hex)
        return {{}, {columns + 0.5 - 1, (rows - 1) * std::numbers::sqrt3 / 2}};
    const std::size_t outermost = size[0] - 1;
    const float circumference =
        static_cast<float>(outermost == 0 ? 1 : LayerShape::ringLength(outermost));
    const float radius = circumference / kFullTurn;
    return {{-radius, -radius}, {2 * radius, 2 * radius}};
}

} // namespace VORN
