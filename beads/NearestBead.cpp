#include "beads/NearestBead.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace VORN {

namespace {

/// A run of indices, `last` excluded.
struct Window {
    std::size_t first;
    std::size_t last;
};

/// The `width` indices around `centre` of those below `count`; fewer only where there are fewer.
Window windowAround(double centre, std::size_t width, std::size_t count) {
    const std::size_t latest = count > width ? count - width : 0;
    const std::size_t before = width / 2;
    const double wanted = std::round(centre) - static_cast<double>(before);
    const double first = std::clamp(wanted, 0.0, static_cast<double>(latest));
    return {static_cast<std::size_t>(first),
            std::min(static_cast<std::size_t>(first) + width, count)};
}

/// `box` with a margin of one bead pitch on every side.
Hyperrectangle<2, float> widened(const Hyperrectangle<2, float>& box) {
    const Point<2, float>& origin = box.origin();
    const Vector<2, float>& extent = box.extent();
    return {{origin[0] - 1, origin[1] - 1}, {extent[0] + 2, extent[1] + 2}};
}

} // namespace

/// The nearest bead so far; at equal distances the one with the lowest content position.
class NearestBead::Best {
public:
    explicit Best(const Point<2, float>& point) : point_{point} {}

    void consider(std::size_t i, const Point<2, float>& position) {
        const float distance = squaredDistance(position, point_);
        if (found_ && !(distance < distance_ || (distance == distance_ && i < *found_)))
            return;
        found_ = i;
        distance_ = distance;
    }
    std::optional<std::size_t> found() const { return found_; }

private:
    Point<2, float> point_;
    std::optional<std::size_t> found_;
    float distance_ = 0.0F;
};

NearestBead::NearestBead(PatternStyle style, const Pattern::Layer& layer)
    : geometry_{style, layer.size}, length_{layer.content.size()}, near_{widened(geometry_.box())} {
    if (style != PatternStyle::Circle)
        return;
    ringed_.reserve(length_);
    for (std::size_t i = 0; i < length_; ++i)
        ringed_.push_back(geometry_.position(i));
}

std::optional<std::size_t> NearestBead::find(const Point<2, float>& point) const {
    Best best{point};
    if (!near_.contains(point))
        walk(best);
    else if (geometry_.style() == PatternStyle::Circle)
        searchRings(point, best);
    else
        searchGrid(point, best);
    return best.found();
}

// A grid holds its nearest bead in the row or the column next to the point. The windows are wider
// and lie inside the grid, so that they reach past a last row that is not complete.
void NearestBead::searchGrid(const Point<2, float>& point, Best& best) const {
    constexpr std::size_t kRows = 5;
    const std::size_t rowLength = geometry_.rowLength();
    if (rowLength == 0 || length_ == 0)
        return;
    const bool isHex = geometry_.style() == PatternStyle::Hex;
    const double rowPitch = isHex ? std::numbers::sqrt3 * 0.5 : 1.0;
    const std::size_t rows = (length_ - 1) / rowLength + 1;
    const Window window = windowAround(point[1] / rowPitch, kRows, rows);
    for (std::size_t row = window.first; row < window.last; ++row)
        searchRow(row, point, best);
}

void NearestBead::searchRow(std::size_t row, const Point<2, float>& point, Best& best) const {
    constexpr std::size_t kColumns = 7;
    const bool isHex = geometry_.style() == PatternStyle::Hex;
    const std::size_t start = row * geometry_.rowLength();
    const std::size_t count = std::min(geometry_.rowLength(), length_ - start);
    const Window window = windowAround(point[0] / (isHex ? 0.5 : 1.0), kColumns, count);
    for (std::size_t column = window.first; column < window.last; ++column)
        if (!isHex || (row + column) % 2 == 0)
            best.consider(start + column, geometry_.position(start + column));
}

void NearestBead::searchRings(const Point<2, float>& point, Best& best) const {
    constexpr std::size_t kRings = 5;
    if (length_ == 0)
        return;
    const double turn = std::atan2(point[1], point[0]) / (2 * std::numbers::pi);
    const double ring = std::hypot(point[0], point[1]) / ringRadius(1);
    const Window window = windowAround(ring, kRings, ringOf(length_ - 1) + 1);
    for (std::size_t r = window.first; r < window.last; ++r)
        searchRing(r, turn, best);
}

/// Looks at the beads of a ring around `turn`, in turns from -1 to 1, and at the ring's first and
/// last, between which a ring that is not complete has its gap.
void NearestBead::searchRing(std::size_t ring, double turn, Best& best) const {
    if (ring == 0) {
        best.consider(0, ringed_[0]);
        return;
    }
    constexpr int kReach = 2;
    const auto beads = static_cast<double>(6 * ring);
    const std::size_t first = 3 * ring * (ring - 1) + 1;
    const std::size_t last = std::min(first + 6 * ring, length_) - 1;
    // The first bead of the ring stands at (ring - 1) / ring of a turn, that is 6 before its end.
    const double place = std::round(turn * beads) + 6.0;
    for (int step = -kReach; step <= kReach; ++step) {
        const double offset = place + step - beads * std::floor((place + step) / beads);
        const std::size_t i = first + static_cast<std::size_t>(offset);
        if (i <= last)
            best.consider(i, ringed_[i]);
    }
    best.consider(first, ringed_[first]);
    best.consider(last, ringed_[last]);
}

void NearestBead::walk(Best& best) const {
    forEachBead(geometry_, length_, [&](std::size_t i) {
        best.consider(i, ringed_.empty() ? geometry_.position(i) : ringed_[i]);
    });
}

} // namespace VORN
