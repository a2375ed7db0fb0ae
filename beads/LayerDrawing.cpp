#include "beads/LayerDrawing.h"

#include "beads/BeadGeometry.h"
#include "beads/DiscPainting.h"
#include "beads/NearestBead.h"

#include <array>
#include <cmath>
#include <vector>

namespace VORN {

namespace {

/// `length` in pixels, rounded up to whole ones.
unsigned toPixels(float length) {
    const float pixels = std::ceil(length);
    constexpr float kLimit = 4294967296.0F; // the first that does not fit
    if (!(pixels < kLimit))
        throw AllocateException{kNoOrigin, "picture"};
    return static_cast<unsigned>(pixels);
}

/// Gives each pixel the colour of the bead nearest to its corner.
void drawNearest(const LayerView& layer, const LayerFrame& frame, const Palette& palette,
                 const Rgb& background, Picture& picture) {
    std::array<Rgb, Palette::kSlots> pixels;
    pixels.fill(background);
    for (const auto& [symbol, color] : palette)
        pixels[Palette::slotOf(symbol)] = toRgb(color);
    std::vector<float> across(frame.width()); // the bead coordinate of each column of pixels
    for (unsigned x = 0; x < frame.width(); ++x)
        across[x] = frame.toBeads({x, 0U})[0];
    const NearestBead nearestBead{layer};
    NearestBead::Raster raster{nearestBead, across};
    for (unsigned y = 0; y < frame.height(); ++y) {
        PaintedRow row = picture.paintedRow(frame.height() - 1 - y);
        const std::span beads = raster.findRow(frame.toBeads({0U, y})[1]);
        for (unsigned x = 0; x < frame.width(); ++x)
            row.set(x, beads[x] ? pixels[Palette::slotOf(layer.content[*beads[x]])] : background);
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

void drawLayer(const LayerView& layer, const Palette& palette, float beadSize,
               const Color& background, Picture& picture) {
    constexpr float kLargestPixelBead = 1.5F;
    const LayerFrame frame{BeadGeometry{layer.shape}.box(), beadSize};
    picture.resize({3U, frame.width(), frame.height()});
    if (beadSize > kLargestPixelBead)
        paintDiscs(layer, frame, 0.5F * beadSize, palette, toRgb(background), picture);
    else
        drawNearest(layer, frame, palette, toRgb(background), picture);
}

} // namespace VORN
