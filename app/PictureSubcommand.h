#pragma once

#include "app/CommonOptions.h"
#include "app/KavrinSubcommand.h"
#include "beads/PictureConversion.h"

/// Turns a picture into a bead pattern against a palette.
class PictureSubcommand : public KavrinSubcommand {
public:
    static constexpr const char* kName = "picture";
    static constexpr const char* kDescription = "Generate pattern from a picture and palette.";

    PictureSubcommand();
    int run() override;

private:
    using Text = VORN::ArgumentProcessor::DirectValue<std::string>;
    using Number = VORN::ArgumentProcessor::SimpleValue<unsigned>;
    using Fraction = VORN::ArgumentProcessor::SimpleValue<float>;
    using Parameter = VORN::ArgumentProcessor::Parameter;

    VORN::ConversionOptions options() const;

    Text& pictureFile_;
    Text& paletteFile_;
    Text& patternFile_;

    Parameter& crop_;
    Number& cropX_;
    Number& cropY_;
    Number& cropWidth_;
    Number& cropHeight_;
    Parameter& cropTransparent_;

    Parameter& hsvWeights_;
    Fraction& hueWeight_;
    Fraction& saturationWeight_;
    Fraction& valueWeight_;

    VORN::ColorOption transparentColor_;
    Fraction& transparentThreshold_;
    Parameter& transparentPosition_;
    Number& transparentX_;
    Number& transparentY_;

    VORN::PegboardOption pegboard_;
    Parameter& dithering_;
};
