#pragma once

#include "app/KavrinSubcommand.h"

/// Makes a palette of the colours of a picture.
class PaletteSubcommand : public KavrinSubcommand {
public:
    static constexpr const char* kName = "palette";
    static constexpr const char* kDescription = "Generate palette from a picture.";

    PaletteSubcommand();
    int run() override;

private:
    using Text = VORN::ArgumentProcessor::DirectValue<std::string>;

    Text& pictureFile_;
    Text& paletteFile_;
};
