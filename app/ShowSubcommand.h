#pragma once

#include "app/CommonOptions.h"
#include "app/KavrinSubcommand.h"

/// Draws a pattern, one picture for each layer.
class ShowSubcommand : public KavrinSubcommand {
public:
    static constexpr const char* kName = "show";
    static constexpr const char* kDescription = "Produce an image of a pattern.";

    ShowSubcommand();
    int run() override;

private:
    using Text = VORN::ArgumentProcessor::DirectValue<std::string>;

    Text& paletteFile_;
    Text& patternFile_;
    Text& imageFile_;
    VORN::ArgumentProcessor::SimpleValue<float>& beadSize_; // pixels
    VORN::ColorOption background_;
};
