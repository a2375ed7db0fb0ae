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

Columns opaqueColumns(std::span<const unsigned char> row, const ColorBox& transparent) {
    const std::size_t width = row.size() / 3;
    std::size_t first = 0;
    while (first < width && transparent.contains(&row[3 * first]))
        ++first;
    std::size_t last = width;
    while (last > first && transparent.contains(&row[3 * (last - 1)]))
        --last;
    return {first, last};
}

} // namespace

Color pickColor(const PictureView& picture, unsigned x, unsigned y) {
    requireBelow(x, picture.size()[1]);
    requireBelow(y, picture.size()[2]);
    const unsigned fromBottom = picture.size()[2] - 1 - y;
    const unsigned char* pixel = &picture[{0U, x, fromBottom}];
    return {toComponent(pixel[0]), toComponent(pixel[1]), toComponent(pixel[2])};
}

void crop(Picture& picture, const PictureRegion& region) {
    const std::uint64_t right = std::uint64_t{region.origin()[0]} + region.extent()[0];
    const std::uint64_t bottom = std::uint64_t{region.origin()[1]} + region.extent()[1];
    requireAtMost(right, picture.size()[1]);
    requireAtMost(bottom, picture.size()[2]);

    const Tuple<3, unsigned> size{3U, region.extent()[0], region.extent()[1]};
    if (sampleCount(size) == 0)
        return picture.Resize(size);

    // Rows only move towards the front, past those that were moved before.
    const std::size_t stride = std::size_t{3} * picture.size()[1];
    const std::size_t rowBytes = std::size_t{3} * region.extent()[0];
    unsigned char* samples = picture.samples().data();
    const unsigned char* from =
        samples + (picture.size()[2] - bottom) * stride + std::size_t{3} * region.origin()[0];
    for (std::size_t row = 0; row < region.extent()[1]; ++row)
        std::copy_n(from + row * stride, rowBytes, samples + row * rowBytes);
    picture.Resize(size);
}

PictureRegion opaqueRegion(const PictureView& picture, const ColorBox& transparent) {
    const unsigned width = picture.size()[1];
    const unsigned height = picture.size()[2];
    if (picture.count() == 0)
        return {{}, {width, height}};
    std::size_t left = width;
    std::size_t right = 0;
    unsigned bottomRow = height; // both count from the bottom of the picture
    unsigned topRow = 0;
    for (unsigned y = 0; y < height; ++y) {
        const std::size_t rowBytes = std::size_t{3} * width;
        const Columns opaque =
            opaqueColumns(picture.samples().subspan(y * rowBytes, rowBytes), transparent);
        if (opaque.first == opaque.last)
            continue;
        left = std::min(left, opaque.first);
        right = std::max(right, opaque.last);
        bottomRow = std::min(bottomRow, y);
        topRow = y;
    }
    if (left >= right)
        return {{}, {width, height}};
    return {{static_cast<unsigned>(left), height - 1 - topRow},
            {static_cast<unsigned>(right - left), topRow - bottomRow + 1}};
}

} // namespace VORN
