#include "app/PictureSubcommand.h"

#include "app/Artwork.h"
#include "beads/BeadGeometry.h"
#include "beads/Scaling.h"

#include <iostream>

using namespace VORN;

namespace {

/// The size that a picture is brought to so that a pixel falls on each bead pitch of `layer`.
Tuple<2, unsigned> pixelsUnder(PatternStyle style, const Pattern::Layer& layer) {
    const Vector<2, float> extent = BeadGeometry{style, layer.size}.box().extent();
    return {static_cast<unsigned>(extent[0]), static_cast<unsigned>(extent[1])};
}

} // namespace

PictureSubcommand::PictureSubcommand()
    : KavrinSubcommand{kName, kDescription},
      pictureFile_{arguments()
                       .addPositional("input picture; importer chosen by extension")
                       .add<Text>("picture file")},
      paletteFile_{arguments()
                       .addPositional("palette file, or the name of a builtin palette")
                       .add<Text>("palette file")},
      patternFile_{arguments().addPositional("output pattern file").add<Text>("pattern file")},
      crop_{arguments().addNamed({"--crop"}, "image crop")},
      cropX_{crop_.add<Number>("x")},
      cropY_{crop_.add<Number>("y")},
      cropWidth_{crop_.add<Number>("width")},
      cropHeight_{crop_.add<Number>("height")},
      cropTransparent_{
          arguments().addNamed({"--crop-transparent"}, "crop transparent borders of image")},
      hsvWeights_{arguments().addNamed({"--hsv-weights"}, "color distance HSV weights")},
      hueWeight_{hsvWeights_.add<Fraction>("H", 1.0F)},
      saturationWeight_{hsvWeights_.add<Fraction>("S", 1.0F)},
      valueWeight_{hsvWeights_.add<Fraction>("V", 1.0F)},
      transparentColor_{arguments().addNamed({"--transparent-color"}, ColorOption::kDescription),
                        {}},
      transparentThreshold_{
          arguments()
              .addNamed({"--transparent-threshold"}, "threshold box side in the range 0.0-1.0")
              .add<Fraction>("", 0.05F)},
      transparentPosition_{arguments().addNamed({"--transparent-position"},
                                                "position in image to pick transparent color")},
      transparentX_{transparentPosition_.add<Number>("x")},
      transparentY_{transparentPosition_.add<Number>("y")},
      pegboard_{arguments().addNamed({"--pegboard"}, PegboardOption::kDescription)},
      dithering_{arguments().addNamed({"--dithering"}, "dithering")} {}

int PictureSubcommand::run() {
    Migration::ImageSignal<unsigned char> picture;
    Palette palette;
    if (!loadPicture(pictureFile_.get(), picture) || !loadPalette(paletteFile_.get(), palette))
        return 1;

    const auto transparent = transparentColors(PictureView{picture});
    if (crop_.assigned())
        crop(picture, {{cropX_.get(), cropY_.get()}, {cropWidth_.get(), cropHeight_.get()}});
    if (cropTransparent_.assigned()) {
        if (!transparent) {
            std::cerr << "Transparency crop set without transparency criteria.\n";
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
    if (transparentPosition_.assigned())
        return ColorBox{pickColor(picture, transparentX_.get(), transparentY_.get()),
                        transparentThreshold_.get()};
    return std::nullopt;
}

PaletteMatcher::Weights PictureSubcommand::weights() const {
    if (!hsvWeights_.assigned())
        return std::nullopt;
    return Vector<3, float>{hueWeight_.get(), saturationWeight_.get(), valueWeight_.get()};
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
    if (!dithering_.assigned()) {
        matchBeads(picture, matcher, transparent, pattern);
    } else if (pattern.style != PatternStyle::Square) {
        std::cerr << "Dithering is only supported for square patterns. \n";
        return 0;
    } else {
        pattern.layer(0) = {dither(picture, matcher), {picture.size()[1], picture.size()[2]}};
    }
    return savePattern(patternFile_.get(), pattern) ? 0 : 1;
}
