#pragma once

#include "beads/Cropping.h"
#include "beads/PaletteMatcher.h"
#include "beads/Pattern.h"

#include <optional>

namespace VORN {

/// How a picture is to be turned into a pattern; each step is left out where nothing is given.
struct ConversionOptions {
    /// The colour that counts as transparent; else that of the pixel at `transparentPosition`,
    /// counted from the top left corner of the whole picture.
    std::optional<Color> transparentColor;
    std::optional<Tuple<2, unsigned>> transparentPosition;
    float transparentThreshold = 0.05F; // how far a channel may be off, in 0.0-1.0

    std::optional<PictureRegion> crop;
    bool cropsTransparentBorders = false;
    std::optional<LayerShape> pegboard; // else a square layer with a bead for every pixel
    ColorDistance distance = RgbDistance{};
    bool dithers = false;
};

enum class ConversionResult {
    Converted,
    NoTransparentColor,  // borders cannot be cropped, as nothing counts as transparent
    DitheringNeedsSquare // another style cannot be dithered
};

/// Turns a picture into the only layer of `pattern`, which is empty before.
///
/// The picture is cropped, brought to about one pixel for each bead pitch of the pegboard and
/// matched with the palette, bead by bead or with dithering; a dithered layer has a bead for every
/// pixel left then. A position or region outside the picture is a `BoundException`, a layer too
/// large for memory an `AllocateException`. Unless converted, the pattern has no meaning.
ConversionResult convertPicture(PictureView picture, const Palette& palette,
                                const ConversionOptions& options, Pattern& pattern);

} // namespace VORN
