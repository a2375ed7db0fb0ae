#include "beads/LayerShape.h"

#include "core/CheckedSize.h"
#include "core/Exception.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace VORN {

namespace {

/// The size that `count` beads or rows have along one axis.
unsigned toExtent(std::size_t count) {
    constexpr std::uint64_t kMaximum = std::numeric_limits<unsigned>::max();
    if (count > kMaximum)
        throw BoundException<std::uint64_t>{kNoOrigin, count, kMaximum};
    return static_cast<unsigned>(count);
}

/// The ring that holds content position `i` of a circle.
std::size_t ringOf(std::size_t i) {
    if (i == 0)
        return 0;
    const std::size_t sixths = (i - 1) / LayerShape::ringLength(1);
    const double root = std::sqrt(2 * static_cast<double>(sixths) + 0.25);
    return static_cast<std::size_t>(std::max(0.0, root - 0.5)) + 1;
}

} // namespace

std::optional<PatternStyle> patternStyleNamed(std::string_view name) {
    const auto* const found = std::ranges::find(kPatternStyleNames, name);
    if (found == kPatternStyleNames.end())
        return std::nullopt;
    return static_cast<PatternStyle>(found - kPatternStyleNames.begin());
}

LayerShape LayerShape::ofText(PatternStyle style, std::size_t firstRowLength, std::size_t rows) {
    const unsigned height = toExtent(rows);
    if (style == PatternStyle::Circle)
        return {style, {height, height}};
    return {style,
            {toExtent(style == PatternStyle::Hex ? firstRowLength / 2 : firstRowLength), height}};
}

std::size_t LayerShape::textRowLength(PatternStyle style, std::size_t firstRowLength,
                                      std::size_t row) {
    return style == PatternStyle::Circle ? ringLength(row) : firstRowLength;
}

std::size_t LayerShape::rowLength(std::size_t row) const {
    if (style_ == PatternStyle::Circle)
        return ringLength(row);
    return std::size_t{size_[0]} * beadStep();
}

std::size_t LayerShape::contentLength() const {
    const std::uint64_t width = size_[0];
    const std::uint64_t height = size_[1];
    if (width == 0 || height == 0)
        return 0;
    const bool isCircle = style_ == PatternStyle::Circle;
    const CheckedSize product =
        isCircle ? CheckedSize{3 * (width - 1)} * width : CheckedSize{width * beadStep()} * height;
    const std::uint64_t length = product.saturated();
    if (length >= static_cast<std::uint64_t>(PTRDIFF_MAX))
        throw AllocateException{kNoOrigin, "pattern layer"};
    return static_cast<std::size_t>(isCircle ? length + 1 : length);
}

std::size_t LayerShape::rowsIn(std::size_t length) const {
    if (length == 0)
        return 0;
    if (style_ == PatternStyle::Circle)
        return ringOf(length - 1) + 1;
    return rowLength(0) > 0 ? (length - 1) / rowLength(0) + 1 : 0;
}

} // namespace VORN
