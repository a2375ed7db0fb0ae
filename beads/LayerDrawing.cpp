#include "beads/LayerDrawing.h"

#include "beads/NearestBead.h"

#include <cmath>

namespace VORN {

namespace {

using Rgb = std::array<unsigned char, 3>;

Rgb toBytes(const Color& color) { return {toByte(color[0]), toByte(color[1]), toByte(color[2])}; }

unsigned toPixels(float length) {
    const float pixels = std::ceil(length);
    constexpr float kLimit = 4294967296.0F; // the first that does not fit
    if (!(pixels < kLimit))
        throw AllocateException{kNoOrigin, "picture"};
    return static_cast<unsigned>(pixels);
}

/// Fills pixels, which lie side by side.
void fillPixels(std::span<unsigned char> pixels, const Rgb& rgb) {
    for (std::size_t i = 0; i < pixels.size(); i += 3) {
        pixels[i] = rgb[0];
        pixels[i + 1] = rgb[1];
        pixels[i + 2] = rgb[2];
    }
}

/// Pixels along one axis, `last` excluded.
struct PixelRange {
    std::int64_t first;
    std::int64_t last;
};

/// The pixels of one axis whose centres lie within `reach` of `centre`.
PixelRange pixelsWithin(double centre, double reach, unsigned count) {
    const double first = std::ceil(centre - reach - 0.5);
    const double last = std::floor(centre + reach - 0.5) + 1;
    const double end = count;
    return {static_cast<std::int64_t>(std::clamp(first, 0.0, end)),
            static_cast<std::int64_t>(std::clamp(last, 0.0, end))};
}

/// The columns of a row that a disc holds; `x` and `dy` lead from the row's begin to its centre.
PixelRange discColumns(double x, double dy, double r, unsigned width) {
    const auto isInside = [&](std::int64_t column) {
        const double dx = static_cast<double>(column) + 0.5 - x;
        return dx * dx + dy * dy <= r * r;
    };
    // The root comes near; the ends are decided by the exact condition.
    const double reach = std::sqrt(std::max(r * r - dy * dy, 0.0));
    const double end = width;
    PixelRange columns{static_cast<std::int64_t>(std::clamp(x - reach + 0.5, 0.0, end)),
                       static_cast<std::int64_t>(std::clamp(x + reach + 0.5, 0.0, end))};
    while (columns.first > 0 && isInside(columns.first - 1))
        --columns.first;
    while (columns.last < width && isInside(columns.last))
        ++columns.last;
    while (columns.first < columns.last && !isInside(columns.first))
        ++columns.first;
    while (columns.first < columns.last && !isInside(columns.last - 1))
        --columns.last;
    return columns;
}

void paintDisc(Picture& picture, const Point<2, float>& centre, float radius, const Rgb& rgb) {
    const unsigned width = picture.size()[1];
    const std::span<unsigned char> samples = picture.samples();
    const PixelRange rows = pixelsWithin(centre[1], radius, picture.size()[2]);
    for (std::int64_t row = rows.first; row < rows.last; ++row) {
        const double dy = static_cast<double>(row) + 0.5 - centre[1];
        const PixelRange columns = discColumns(centre[0], dy, radius, width);
        const auto begin = static_cast<std::size_t>(row * width + columns.first);
        const auto count = static_cast<std::size_t>(columns.last - columns.first);
        fillPixels(samples.subspan(3 * begin, 3 * count), rgb);
    }
}

/// The bytes that each symbol is drawn with.
std::array<Rgb, Palette::kSlots> symbolBytes(const Palette& palette, const Rgb& background) {
    std::array<Rgb, Palette::kSlots> bytes;
    for (unsigned symbol = 0; symbol < Palette::kSlots; ++symbol) {
        const auto slot = static_cast<unsigned char>(symbol);
        bytes[symbol] = palette.Contains(slot) ? toBytes(palette.Get(slot)) : background;
    }
    return bytes;
}

void drawDiscs(const BeadGeometry& geometry, const LayerFrame& frame, float radius,
               const std::string& content, const Palette& palette, Picture& picture) {
    const auto bytes = symbolBytes(palette, {});
    forEachBead(geometry, content.size(), [&](std::size_t i) {
        const auto symbol = static_cast<unsigned char>(content[i]);
        if (palette.Contains(symbol))
            paintDisc(picture, frame.toPicture(geometry.position(i)), radius, bytes[symbol]);
    });
}

void drawNearest(PatternStyle style, const Pattern::Layer& layer, const LayerFrame& frame,
                 const Palette& palette, const Rgb& background, Picture& picture) {
    const auto bytes = symbolBytes(palette, background);
    const NearestBead beads{style, layer};
    std::size_t pixel = 0;
    for (unsigned y = 0; y < frame.height(); ++y)
        for (unsigned x = 0; x < frame.width(); ++x, pixel += 3) {
            const auto bead = beads.find(frame.toBeads({x, y}));
            const Rgb& rgb =
                bead ? bytes[static_cast<unsigned char>(layer.content[*bead])] : background;
            fillPixels(picture.samples().subspan(pixel, 3), rgb);
        }
}

} // namespace

LayerFrame::LayerFrame(const Hyperrectangle<2, float>& box, float beadSize)
    : pitch_{1.25F * beadSize},
      offsetX_{pitch_ * (0.5F - box.origin()[0])},
      offsetY_{(box.extent()[1] + 1) * pitch_ - pitch_ * (0.5F - box.origin()[1])},
      width_{toPixels((box.extent()[0] + 1) * pitch_)},
      height_{toPixels((box.extent()[1] + 1) * pitch_)} {}

Point<2, float> LayerFrame::toPicture(const Point<2, float>& position) const {
    return {pitch_ * position[0] + offsetX_, -pitch_ * position[1] + offsetY_};
}

Point<2, float> LayerFrame::toBeads(const Point<2, float>& place) const {
    return {place[0] / pitch_ - offsetX_ / pitch_, place[1] / -pitch_ - offsetY_ / -pitch_};
}

void drawDisc(Picture& picture, const Point<2, float>& centre, float radius, const Color& color) {
    paintDisc(picture, centre, radius, toBytes(color));
}

void drawLayer(const Pattern& pattern, std::size_t layer, const Palette& palette, float beadSize,
               const Color& background, Picture& picture) {
    constexpr float kLargestPixelBead = 1.5F;
    const Pattern::Layer& drawn = pattern.layer(layer);
    const BeadGeometry geometry{pattern.style, drawn.size};
    const LayerFrame frame{geometry.box(), beadSize};
    picture.Resize({3U, frame.width(), frame.height()});
    if (beadSize > kLargestPixelBead) {
        fillPixels(picture.samples(), toBytes(background));
        drawDiscs(geometry, frame, 0.5F * beadSize, drawn.content, palette, picture);
    } else {
        drawNearest(pattern.style, drawn, frame, palette, toBytes(background), picture);
    }
}

} // namespace VORN
