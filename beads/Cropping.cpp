#include "beads/Cropping.h"

#include <limits>

namespace VORN {

namespace {

void requireAtMost(std::uint64_t value, unsigned bound) {
    constexpr std::uint64_t kMaximum = std::numeric_limits<unsigned>::max();
    if (value > bound)
        throw BoundException<unsigned>{kNoOrigin, static_cast<unsigned>(std::min(value, kMaximum)),
                                       bound};
}

void requireBelow(unsigned value, unsigned bound) {
    if (value >= bound)
        throw BoundException<unsigned>{kNoOrigin, value, bound};
}

/// The columns of a row outside `transparent`, from the first to the last, `last` excluded; both
/// are the row's end when there are none.
struct Columns {
    std::size_t first;
    std::size_t last;
};

Columns opaqueColumns(const PixelRow& row, const ColorBox& transparent) {
    const std::size_t width = row.width();
    std::size_t first = 0;
    while (first < width && transparent.contains(row[first]))
        ++first;
    std::size_t last = width;
    while (last > first && transparent.contains(row[last - 1]))
        --last;
    return {first, last};
}

} // namespace

Color pickColor(const PictureView& picture, unsigned x, unsigned y) {
    requireBelow(x, picture.width());
    requireBelow(y, picture.height());
    return toColor(picture.row(y)[x]);
}

PictureView crop(const PictureView& picture, const PictureRegion& region) {
    const auto& [x, y] = std::pair{region.origin()[0], region.origin()[1]};
    const auto& [width, height] = std::pair{region.extent()[0], region.extent()[1]};
    requireAtMost(std::uint64_t{x} + width, picture.width());
    requireAtMost(std::uint64_t{y} + height, picture.height());
    return picture.region(x, y, width, height);
}

PictureRegion opaqueRegion(const PictureView& picture, const ColorBox& transparent) {
    std::size_t left = picture.width();
    std::size_t right = 0;
    unsigned top = picture.height();
    unsigned bottom = 0; // excluded
    for (unsigned y = 0; y < picture.height(); ++y) {
        const Columns opaque = opaqueColumns(picture.row(y), transparent);
        if (opaque.first == opaque.last)
            continue;
        left = std::min(left, opaque.first);
        right = std::max(right, opaque.last);
        top = std::min(top, y);
        bottom = y + 1;
    }
    if (left >= right)
        return {{}, {picture.width(), picture.height()}};
    return {{static_cast<unsigned>(left), top},
            {static_cast<unsigned>(right - left), bottom - top}};
}

} // namespace VORN
