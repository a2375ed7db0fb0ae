#pragma once

#include "beads/Cropping.h"
#include "beads/PaletteMatcher.h"
#include "beads/Pattern.h"

#include <optional>

namespace VORN {

/// How a picture is to be turned into a pattern. A step for which nothing is given is left out.
struct ConversionOptions {
    /// The colour that counts as transparent.
    std::optional<Color> transparentColor;
    /// If no colour is given: the pixel whose colour counts as transparent, counted from the top
    /// left corner of the whole picture.
    std::optional<Tuple<2, unsigned>> transparentPosition;
    float transparentThreshold = 0.05F; // how far a channel may be off, in 0.0-1.0

    std::optional<PictureRegion> crop;
    bool cropsTransparentBorders = false;
    std::optional<LayerShape> pegboard; // none: a square layer with a bead for every pixel
    ColorDistance distance = RgbDistance{};
    bool dithers = false;
};

/// How a conversion ended.
enum class ConversionResult {
    Converted,
    NoTransparentColor,  // transparent borders were to be cropped, but no colour is transparent
    DitheringNeedsSquare // only square layers can be dithered
};

/// Turns a picture into the only layer of `pattern`, which must be empty.
///
/// The picture is cropped, scaled to about one pixel for each bead pitch of the pegboard and
/// matched with the palette. Without dithering each bead takes the colour at its place; with
/// dithering the layer gets a bead for each pixel of the scaled picture. A position or region
/// outside of the picture is a `BoundException`, a layer too large for memory an
/// `AllocateException`. Only after `Converted` does the pattern have a meaning.
ConversionResult convertPicture(PictureView picture, const Palette& palette,
                                const ConversionOptions& options, Pattern& pattern);

} // namespace VORN
