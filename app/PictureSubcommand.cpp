#include "app/PictureSubcommand.h"

#include "app/Artwork.h"

#include <iostream>

using namespace VORN;

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
    Picture picture;
    Palette palette;
    if (!loadPicture(pictureFile_.get(), picture) || !loadPalette(paletteFile_.get(), palette))
        return 1;
    Pattern pattern;
    switch (convertPicture(picture, palette, options(), pattern)) {
    case ConversionResult::NoTransparentColor:
        std::cerr << "Transparency crop set without transparency criteria.\n";
        return 1;
    case ConversionResult::DitheringNeedsSquare:
        std::cerr << "Dithering is only supported for square patterns. \n";
        return 0; // deliberately
    case ConversionResult::Converted:
        break;
    }
    return savePattern(patternFile_.get(), pattern) ? 0 : 1;
}

ConversionOptions PictureSubcommand::options() const {
    ConversionOptions options;
    if (transparentColor_.given())
        options.transparentColor = transparentColor_.color();
    if (transparentPosition_.assigned())
        options.transparentPosition = {transparentX_.get(), transparentY_.get()};
    options.transparentThreshold = transparentThreshold_.get();
    if (crop_.assigned())
        options.crop = {{cropX_.get(), cropY_.get()}, {cropWidth_.get(), cropHeight_.get()}};
    options.cropsTransparentBorders = cropTransparent_.assigned();
    if (pegboard_.given())
        options.pegboard = {pegboard_.style(), {pegboard_.sizeBeads(), pegboard_.sizeBeads()}};
    if (hsvWeights_.assigned())
        options.distance = HsvDistance{
            {hueWeight_.get(), saturationWeight_.get(), valueWeight_.get()}};
    options.dithers = dithering_.assigned();
    return options;
}
