#pragma once

#include "app/KavrinSubcommand.h"

/// Writes a LaTeX document that shows how to build patterns.
class InstructionSubcommand : public KavrinSubcommand {
public:
    static constexpr const char* kName = "instruction";
    static constexpr const char* kDescription =
        "Generate a document with instructions for building a pattern.";

    InstructionSubcommand() : KavrinSubcommand{kName, kDescription} {}
    int run() override;

private:
    VORN::TextOption paletteFile_{positional("palette file, or the name of a builtin palette"),
                                  "palette file"};
    VORN::TextListOption patternFiles_{positional("pattern files"), "pattern ... patternN",
                                       VORN::kMaximumPatternFiles};
    VORN::TextOption pitch_{named("--pitch", "bead pitch (size) with unit e.g. 5mm"), "", "5mm"};
    VORN::FlagOption mirror_{named("--mirror", "mirror instruction to match bead fuse side")};
    VORN::TextOption background_{named("--background", "background color"), "color", "white"};
};
