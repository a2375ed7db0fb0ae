#include "app/PictureSubcommand.h"

#include "app/InputLoading.h"
#include "app/OutputSaving.h"
#include "beads/BeadGeometry.h"
#include "beads/Scaling.h"
#include "core/Console.h"

using namespace VORN;

namespace {

/// The size that a picture is brought to so that a pixel falls on each bead pitch of `layer`.
Tuple<2, unsigned> pixelsUnder(PatternStyle style, const Pattern::Layer& layer) {
    const Vector<2, float> extent = BeadGeometry{style, layer.size}.box().extent();
    return {static_cast<unsigned>(extent[0]), static_cast<unsigned>(extent[1])};
}

} // namespace

int PictureSubcommand::run() {
    Migration::ImageSignal<unsigned char> picture;
    Palette palette;
    if (!loadPicture(pictureFile_.get(), picture) || !loadPalette(paletteFile_.get(), palette))
        return 1;

    const auto transparent = transparentColors(PictureView{picture});
    if (crop_.given())
        crop(picture, {{crop_[0], crop_[1]}, {crop_[2], crop_[3]}});
    if (cropTransparent_.given()) {
        if (!transparent) {
            complain("Transparency crop set without transparency criteria.");
            return 1;
        }
        crop(picture, opaqueRegion(PictureView{picture}, *transparent));
    }
    return convert(PictureView{picture}, transparent, palette);
}

std::optional<ColorBox> PictureSubcommand::transparentColors(const PictureView& picture) const {
    if (transparentColor_.given()) {
        Color color = transparentColor_.color();
        for (std::size_t component = 0; component < 3; ++component)
            color[component] = std::clamp(color[component], 0.0F, 1.0F);
        return ColorBox{color, transparentThreshold_.get()};
    }
    if (transparentPosition_.given())
        return ColorBox{pickColor(picture, transparentPosition_[0], transparentPosition_[1]),
                        transparentThreshold_.get()};
    return std::nullopt;
}

PaletteMatcher::Weights PictureSubcommand::weights() const {
    if (!hsvWeights_.given())
        return std::nullopt;
    return Vector<3, float>{hsvWeights_[0], hsvWeights_[1], hsvWeights_[2]};
}

int PictureSubcommand::convert(PictureView picture, const std::optional<ColorBox>& transparent,
                               const Palette& palette) const {
    Pattern pattern;
    Tuple<2, unsigned> size{picture.size()[1], picture.size()[2]};
    if (pegboard_.given()) {
        pattern.style = pegboard_.style();
        size = {pegboard_.sizeBeads(), pegboard_.sizeBeads()};
    }
    pattern.AddFilledLayer(size, kNoBead);

    Signal<3, unsigned char> scaled;
    if (pegboard_.given() && picture.count() > 0) {
        const Tuple<2, unsigned> target = pixelsUnder(pattern.style, pattern.layer(0));
        if (target[0] > 0 && target[1] > 0) {
            scaled = scale(picture, target[0], target[1]);
            picture = PictureView{scaled};
        }
    }
    const PaletteMatcher matcher{palette, weights()};
    if (!dithering_.given()) {
        matchBeads(picture, matcher, transparent, pattern);
    } else if (pattern.style != PatternStyle::Square) {
        complain("Dithering is only supported for square patterns. ");
        return 0;
    } else {
        pattern.layer(0) = {dither(picture, matcher), {picture.size()[1], picture.size()[2]}};
    }
    return savePattern(patternFile_.get(), pattern) ? 0 : 1;
}
