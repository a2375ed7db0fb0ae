#include "beads/PictureConversion.h"

#include "beads/BeadGeometry.h"
#include "beads/BeadMatching.h"
#include "beads/Dithering.h"
#include "beads/Scaling.h"

#include <algorithm>

namespace VORN {

namespace {

/// The colours that count as transparent, if any do.
std::optional<ColorBox> transparentColors(const PictureView& picture,
                                          const ConversionOptions& options) {
    if (options.transparentColor) {
        Color color = *options.transparentColor;
        for (std::size_t component = 0; component < 3; ++component)
            color[component] = std::clamp(color[component], 0.0F, 1.0F);
        return ColorBox{color, options.transparentThreshold};
    }
    if (const auto& position = options.transparentPosition)
        return ColorBox{pickColor(picture, (*position)[0], (*position)[1]),
                        options.transparentThreshold};
    return std::nullopt;
}

/// The picture scaled to one pixel for each bead pitch of `pegboard`; nothing if either has no
/// extent.
std::optional<Picture> fitted(const PictureView& picture, const LayerShape& pegboard) {
    const Vector<2, float> extent = BeadGeometry{pegboard}.box().extent();
    const auto width = static_cast<unsigned>(extent[0]);
    const auto height = static_cast<unsigned>(extent[1]);
    if (picture.isEmpty() || width == 0 || height == 0)
        return std::nullopt;
    return scale(picture, width, height);
}

} // namespace

ConversionResult convertPicture(PictureView picture, const Palette& palette,
                                const ConversionOptions& options, Pattern& pattern) {
    const auto transparent = transparentColors(picture, options);
    if (options.crop)
        picture = crop(picture, *options.crop);
    if (options.cropsTransparentBorders) {
        if (!transparent)
            return ConversionResult::NoTransparentColor;
        picture = crop(picture, opaqueRegion(picture, *transparent));
    }

    const LayerShape shape = options.pegboard.value_or(
        LayerShape{PatternStyle::Square, {picture.width(), picture.height()}});
    pattern.style = shape.style();
    Pattern::Layer& layer = pattern.layer(pattern.AddFilledLayer(shape.size(), kNoBead));
    const std::optional<Picture> fittedPicture =
        options.pegboard ? fitted(picture, shape) : std::nullopt;
    if (fittedPicture)
        picture = *fittedPicture;

    const PaletteMatcher matcher{palette, options.distance};
    if (!options.dithers) {
        matchBeads(picture, matcher, transparent, shape, layer.content);
        return ConversionResult::Converted;
    }
    if (shape.style() != PatternStyle::Square)
        return ConversionResult::DitheringNeedsSquare;
    layer = {dither(picture, matcher), {picture.width(), picture.height()}};
    return ConversionResult::Converted;
}

} // namespace VORN
