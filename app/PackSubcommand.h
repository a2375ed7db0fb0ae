#pragma once

#include "app/KavrinSubcommand.h"

/// Packs the layers of square patterns onto panels of one size.
class PackSubcommand : public KavrinSubcommand {
public:
    static constexpr const char* kName = "pack";
    static constexpr const char* kDescription =
        "Pack square patterns into pattern with layers of panels.";

    PackSubcommand() : KavrinSubcommand{kName, kDescription} {}
    int run() override;

private:
    VORN::PegboardOption pegboard_{positional(VORN::PegboardOption::kDescription)};
    VORN::TextOption paletteFile_{positional("input palette for background crop"), "palette"};
    VORN::TextListOption patternFiles_{positional("pattern files"), "pattern ... patternN",
                                       VORN::kMaximumPatternFiles};
    VORN::TextOption output_{named("-o", "output pattern file"), "pattern"};
};
