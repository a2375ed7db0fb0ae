#pragma once

#include "app/KavrinSubcommand.h"

/// Makes a palette of the colours that occur in a picture.
class PaletteSubcommand : public KavrinSubcommand {
public:
    static constexpr const char* kName = "palette";
    static constexpr const char* kDescription = "Generate palette from a picture.";

    PaletteSubcommand() : KavrinSubcommand{kName, kDescription} {}
    int run() override;

private:
    VORN::TextOption pictureFile_{positional("input picture; importer chosen by extension"),
                                  "input picture file"};
    VORN::TextOption paletteFile_{positional("output palette file"), "output palette file"};
};
