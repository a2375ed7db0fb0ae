#pragma once

#include "app/KavrinSubcommand.h"

/// Draws a pattern: a picture for each layer.
class ShowSubcommand : public KavrinSubcommand {
public:
    static constexpr const char* kName = "show";
    static constexpr const char* kDescription = "Produce an image of a pattern.";

    ShowSubcommand() : KavrinSubcommand{kName, kDescription} {}
    int run() override;

private:
    VORN::TextOption paletteFile_{positional("palette file, or the name of a builtin palette"),
                                  "palette file"};
    VORN::TextOption patternFile_{positional("pattern file"), "pattern file"};
    VORN::TextOption imageFile_{positional("output image file; exporter chosen by extension"),
                                "output image file"};
    VORN::FractionOption beadSize_{named("-s", "bead size"), "", 4.0F}; // pixels
    VORN::ColorOption background_{named("--background", VORN::ColorOption::kDescription),
                                  {0.5F, 0.5F, 0.5F}};
};
