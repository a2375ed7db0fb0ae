#include "beads/NearestBead.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>

namespace VORN {

namespace {

/// `box` with a margin of one bead pitch on every side.
Hyperrectangle<2, float> widened(const Hyperrectangle<2, float>& box) {
    const Point<2, float>& origin = box.origin();
    const Vector<2, float>& extent = box.extent();
    return {{origin[0] - 1, origin[1] - 1}, {extent[0] + 2, extent[1] + 2}};
}

} // namespace

NearestBead::Window NearestBead::windowAround(double centre, std::size_t count) {
    const std::size_t latest = count > kWindow ? count - kWindow : 0;
    const double begin = std::clamp(centre - 0.5, 0.0, static_cast<double>(latest));
    const auto first = static_cast<std::size_t>(static_cast<std::int64_t>(begin));
    return {first, std::min(first + kWindow, count)};
}

/// The nearest bead so far; at equal distances the one with the lowest content position.
class NearestBead::Best {
public:
    explicit Best(const Point<2, float>& point) : point_{point} {}

    /// Takes the bead at content position `i` if it is nearer.
    void consider(std::size_t i, const Point<2, float>& position) {
        const float distance = squaredDistance(position, point_);
        if (found_ && !(distance < distance_ || (distance == distance_ && i < *found_)))
            return;
        found_ = i;
        distance_ = distance;
    }
    /// The same, faster, for a bead whose content position is above all those before.
    void considerNext(std::size_t i, const Point<2, float>& position) {
        const float distance = squaredDistance(position, point_);
        if (found_ && !(distance < distance_))
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

NearestBead::NearestBead(const LayerView& layer)
    : geometry_{layer.shape},
      length_{layer.content.size()},
      rows_{layer.shape.rowsIn(length_)},
      near_{widened(geometry_.box())} {
    if (layer.shape.style() != PatternStyle::Circle)
        return;
    ringed_.reserve(length_);
    for (const Bead& bead : layer.beads())
        ringed_.push_back(geometry_.position(bead));
}

std::optional<std::size_t> NearestBead::find(const Point<2, float>& point) const {
    Best best{point};
    if (!near_.contains(point))
        walk(best);
    else if (geometry_.shape().style() == PatternStyle::Circle)
        searchRings(point, best);
    else
        searchGrid(point, best);
    return best.found();
}

/// Compares the beads in three rows and three columns around the point. A bead two rows away has
/// one nearer to the point in the row between, so these hold the nearest. At the end of the grid
/// the three rows begin earlier, so that they include a complete row if the last one is not.
void NearestBead::searchGrid(const Point<2, float>& point, Best& best) const {
    const LayerShape& shape = geometry_.shape();
    const std::size_t rowLength = shape.rowLength(0);
    if (rowLength == 0 || length_ == 0)
        return;
    Best nearest = best; // a local copy, which the compiler keeps in registers
    const double place = point[0] / geometry_.columnPitch();
    const Window wholeRow = windowAround(place, rowLength);
    const Window rows = windowAround(point[1] / geometry_.rowPitch(), rows_);
    for (std::size_t row = rows.first; row < rows.last; ++row) {
        const std::size_t start = row * rowLength;
        const std::size_t count = std::min(rowLength, length_ - start);
        const Window columns = count == rowLength ? wholeRow : windowAround(place, count);
        for (std::size_t column = columns.first; column < columns.last; ++column)
            if (shape.isBead(row, column))
                nearest.considerNext(start + column, geometry_.gridPosition(row, column));
    }
    best = nearest;
}

void NearestBead::searchRings(const Point<2, float>& point, Best& best) const {
    if (length_ == 0)
        return;
    const double turn = std::atan2(point[1], point[0]) / (2 * std::numbers::pi);
    const double ring =
        std::sqrt(squaredDistance(point, Point<2, float>{})) / BeadGeometry::ringRadius(1);
    const Window rings = windowAround(ring, rows_);
    for (std::size_t r = rings.first; r < rings.last; ++r)
        searchRing(r, turn, best);
}

/// Compares the three beads of a ring nearest to the angle `turn`, in turns from -1 to 1, and the
/// ring's first and last bead: an incomplete ring has its gap between these.
void NearestBead::searchRing(std::size_t ring, double turn, Best& best) const {
    if (ring == 0) {
        best.consider(0, ringed_[0]);
        return;
    }
    const auto beads = static_cast<double>(LayerShape::ringLength(ring));
    const std::size_t first = LayerShape::ringBegin(ring);
    const std::size_t last = std::min(first + LayerShape::ringLength(ring), length_) - 1;
    // The first bead of the ring lies at (ring - 1) / ring of a turn. From there to the full turn
    // it is as many beads as the first ring has.
    const double place = std::round(turn * beads) + static_cast<double>(LayerShape::ringLength(1));
    for (const double step : {-1.0, 0.0, 1.0}) {
        const double offset = place + step - beads * std::floor((place + step) / beads);
        const std::size_t i = first + static_cast<std::size_t>(offset);
        if (i <= last)
            best.consider(i, ringed_[i]);
    }
    best.consider(first, ringed_[first]);
    best.consider(last, ringed_[last]);
}

/// Compares all beads.
void NearestBead::walk(Best& best) const {
    for (const Bead& bead : geometry_.shape().beads(length_))
        best.considerNext(bead.position,
                          ringed_.empty() ? geometry_.position(bead) : ringed_[bead.position]);
}

NearestBead::Raster::Raster(const NearestBead& beads, std::span<const float> columns)
    : beads_{beads},
      columns_{columns},
      found_(columns.size()) {
    const LayerShape& shape = beads.geometry_.shape();
    columnsAreNear_ =
        shape.style() != PatternStyle::Circle && shape.rowLength(0) > 0 && beads.length_ > 0;
    for (const float x : columns)
        columnsAreNear_ = columnsAreNear_ && beads.near_.contains(Point<2, float>{x, 0.0F});
    if (columnsAreNear_)
        for (const float x : columns)
            addColumn(x);
}

void NearestBead::Raster::addColumn(float x) {
    const BeadGeometry& geometry = beads_.geometry_;
    const LayerShape& shape = geometry.shape();
    const Window window = windowAround(x / geometry.columnPitch(), shape.rowLength(0));
    firstColumns_.push_back(window.first);
    for (std::size_t parity = 0; parity < 2; ++parity)
        for (std::size_t i = 0; i < kWindow; ++i) {
            const std::size_t column = window.first + i;
            const bool isBead = column < window.last && shape.isBead(parity, column);
            const float offset = geometry.gridPosition(0, column)[0] - x;
            squares_[parity][i].push_back(isBead ? offset * offset
                                                 : std::numeric_limits<float>::infinity());
        }
}

std::span<const std::optional<std::size_t>> NearestBead::Raster::findRow(float y) {
    const bool isNear = columnsAreNear_ && beads_.near_.contains(Point<2, float>{0.0F, y});
    if (!isNear || !searchGrid(y))
        for (std::size_t i = 0; i < columns_.size(); ++i)
            found_[i] = beads_.find({columns_[i], y});
    return found_;
}

/// Compares as `NearestBead::searchGrid` does, but each bead with all points. Returns false, and
/// has done nothing, if one of the three rows is incomplete.
bool NearestBead::Raster::searchGrid(float y) {
    const BeadGeometry& geometry = beads_.geometry_;
    const std::size_t rowLength = geometry.shape().rowLength(0);
    const Window rows = windowAround(y / geometry.rowPitch(), beads_.rows_);
    if (rows.last * rowLength > beads_.length_)
        return false;
    least_.assign(columns_.size(), std::numeric_limits<float>::infinity());
    nearest_.assign(columns_.size(), 0);
    std::array<std::size_t, kWindow * kWindow> positions{}; // with the column 0 for the first
    for (unsigned k = 0; k < kWindow * (rows.last - rows.first); ++k) {
        const std::size_t row = rows.first + k / kWindow;
        positions[k] = row * rowLength + k % kWindow;
        const float offset = geometry.gridPosition(row, 0)[1] - y;
        const std::span<const float> squares = squares_[row % 2][k % kWindow];
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            const float distance = squares[i] + offset * offset;
            const bool isNearer = distance < least_[i];
            least_[i] = isNearer ? distance : least_[i];
            nearest_[i] = isNearer ? k : nearest_[i];
        }
    }
    for (std::size_t i = 0; i < columns_.size(); ++i)
        found_[i] = positions[nearest_[i]] + firstColumns_[i];
    return true;
}

} // namespace VORN
