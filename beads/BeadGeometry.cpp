#include "beads/BeadGeometry.h"

#include <cmath>
#include <numbers>

namespace VORN {

namespace {

constexpr float kFullTurn = 6.2831855F;
constexpr std::size_t kFirstRing = 6; // beads in ring 1; ring r has r times as many

Point<2, float> circlePosition(std::size_t i) {
    if (i == 0)
        return {};
    const std::size_t ring = ringOf(i);
    // Deliberately counted from the start of the ring before, which turns ring r by (r - 1) / r of
    // a full turn.
    const std::size_t before = ring > 1 ? 3 * (ring - 1) * (ring - 2) + 1 : 1;
    const float part = static_cast<float>(i - before) / static_cast<float>(kFirstRing * ring);
    constexpr double kPi = std::numbers::pi;
    double angle = 2 * kPi * part;
    angle -= 2 * kPi * std::floor((angle + kPi) / (2 * kPi));
    const double radius = ringRadius(ring);
    return {radius * std::cos(angle), radius * std::sin(angle)};
}

} // namespace

float ringRadius(std::size_t ring) { return static_cast<float>(kFirstRing * ring) / kFullTurn; }

std::size_t ringOf(std::size_t i) {
    if (i == 0)
        return 0;
    const std::size_t sixths = (i - 1) / kFirstRing;
    const double root = std::sqrt(2 * static_cast<double>(sixths) + 0.25);
    return static_cast<std::size_t>(std::max(0.0, root - 0.5)) + 1;
}

BeadGeometry::BeadGeometry(PatternStyle style, const Tuple<2, unsigned>& size)
    : style_{style},
      size_{size},
      rowLength_{std::size_t{size[0]} * (style == PatternStyle::Hex ? 2 : 1)} {
    if (style > PatternStyle::Circle)
        throw SupportException{kNoOrigin, "Pattern style not supported. "};
}

Point<2, float> BeadGeometry::position(std::size_t i) const {
    if (style_ == PatternStyle::Circle)
        return circlePosition(i);
    return gridPosition(i % rowLength_, i / rowLength_);
}

std::size_t BeadGeometry::nextBead(std::size_t i, std::size_t end) const {
    if (style_ == PatternStyle::Circle)
        return std::min(i, end);
    if (rowLength_ == 0)
        return end;
    if (style_ == PatternStyle::Hex)
        while (i < end && (i % rowLength_ + i / rowLength_) % 2 != 0)
            ++i;
    return std::min(i, end);
}

Hyperrectangle<2, float> BeadGeometry::box() const {
    if (size_[0] == 0 || size_[1] == 0)
        return {};
    const double columns = size_[0];
    const double rows = size_[1];
    if (style_ == PatternStyle::Square)
        return {{}, {columns - 1, rows - 1}};
    if (style_ == PatternStyle::Hex)
        return {{}, {columns + 0.5 - 1, (rows - 1) * std::numbers::sqrt3 / 2}};
    const float circumference =
        size_[0] == 1 ? 1.0F : static_cast<float>(kFirstRing * (std::size_t{size_[0]} - 1U));
    const float radius = circumference / kFullTurn;
    return {{-radius, -radius}, {2 * radius, 2 * radius}};
}

} // namespace VORN
