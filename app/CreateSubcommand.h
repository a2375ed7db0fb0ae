#pragma once

#include "app/KavrinSubcommand.h"

/// Makes a pattern for a pegboard, empty, with the symbols of a palette or reshaped from another.
class CreateSubcommand : public KavrinSubcommand {
public:
    static constexpr const char* kName = "create";
    static constexpr const char* kDescription = "Create empty pattern.";

    CreateSubcommand() : KavrinSubcommand{kName, kDescription} {}
    int run() override;

private:
    char fillSymbol() const;
    bool reshape(VORN::Pattern& pattern) const;

    VORN::PegboardOption pegboard_{positional(VORN::PegboardOption::kDescription)};
    VORN::TextOption output_{named("-o", "output pattern file"), "pattern"};
    VORN::TextOption fill_{named("--fill", "palette symbol to fill pattern with"), "symbol",
                           std::string(1, VORN::kNoBead)};
    VORN::TextOption fillPalette_{named("--fill-palette", "palette fill start of pattern with"),
                                  "palette"};
    VORN::TextOption reshape_{named("--reshape", "input pattern to reshape"), "pattern"};
};
