#include "app/PictureSubcommand.h"

#include "app/InputLoading.h"
#include "app/OutputSaving.h"
#include "core/Console.h"

using namespace VORN;

int PictureSubcommand::run() {
    Picture picture;
    Palette palette;
    if (!loadPicture(pictureFile_.get(), picture) || !loadPalette(paletteFile_.get(), palette))
        return 1;
    Pattern pattern;
    switch (convertPicture(picture, palette, options(), pattern)) {
    case ConversionResult::NoTransparentColor:
        complain("Transparency crop set without transparency criteria.");
        return 1;
    case ConversionResult::DitheringNeedsSquare:
        complain("Dithering is only supported for square patterns. ");
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
    if (transparentPosition_.given())
        options.transparentPosition = {transparentPosition_[0], transparentPosition_[1]};
    options.transparentThreshold = transparentThreshold_.get();
    if (crop_.given())
        options.crop = {{crop_[0], crop_[1]}, {crop_[2], crop_[3]}};
    options.cropsTransparentBorders = cropTransparent_.given();
    if (pegboard_.given())
        options.pegboard = {pegboard_.style(), {pegboard_.sizeBeads(), pegboard_.sizeBeads()}};
    if (hsvWeights_.given())
        options.distance = HsvDistance{{hsvWeights_[0], hsvWeights_[1], hsvWeights_[2]}};
    options.dithers = dithering_.given();
    return options;
}
