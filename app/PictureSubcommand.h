#pragma once

#include "app/KavrinSubcommand.h"
#include "beads/PictureConversion.h"

/// Turns a picture into a bead pattern against a palette.
class PictureSubcommand : public KavrinSubcommand {
public:
    static constexpr const char* kName = "picture";
    static constexpr const char* kDescription = "Generate pattern from a picture and palette.";

    PictureSubcommand() : KavrinSubcommand{kName, kDescription} {}
    int run() override;

private:
    VORN::ConversionOptions options() const;

    VORN::TextOption pictureFile_{positional("input picture; importer chosen by extension"),
                                  "picture file"};
    VORN::TextOption paletteFile_{positional("palette file, or the name of a builtin palette"),
                                  "palette file"};
    VORN::TextOption patternFile_{positional("output pattern file"), "pattern file"};
    VORN::NumbersOption<unsigned, 4> crop_{named("--crop", "image crop"),
                                           {"x", "y", "width", "height"}};
    VORN::FlagOption cropTransparent_{
        named("--crop-transparent", "crop transparent borders of image")};
    VORN::NumbersOption<float, 3> hsvWeights_{
        named("--hsv-weights", "color distance HSV weights"), {"H", "S", "V"}, {1.0F, 1.0F, 1.0F}};
    VORN::ColorOption transparentColor_{
        named("--transparent-color", VORN::ColorOption::kDescription), {}};
    VORN::FractionOption transparentThreshold_{
        named("--transparent-threshold", "threshold box side in the range 0.0-1.0"), "", 0.05F};
    VORN::NumbersOption<unsigned, 2> transparentPosition_{
        named("--transparent-position", "position in image to pick transparent color"), {"x", "y"}};
    VORN::PegboardOption pegboard_{named("--pegboard", VORN::PegboardOption::kDescription)};
    VORN::FlagOption dithering_{named("--dithering", "dithering")};
};
