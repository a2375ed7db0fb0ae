#pragma once

#include "app/CommonOptions.h"
#include "app/KavrinSubcommand.h"

/// Makes a pattern for a pegboard, empty, with the symbols of a palette or reshaped from another.
class CreateSubcommand : public KavrinSubcommand {
public:
    static constexpr const char* kName = "create";
    static constexpr const char* kDescription = "Create empty pattern.";

    CreateSubcommand();
    int run() override;

private:
    using Text = VORN::ArgumentProcessor::DirectValue<std::string>;
    using Parameter = VORN::ArgumentProcessor::Parameter;

    char fillSymbol() const;
    bool reshape(VORN::Pattern& pattern) const;

    VORN::PegboardOption pegboard_;
    VORN::PatternOutputOption output_;
    Text& fill_;
    Parameter& fillPalette_;
    Text& paletteFile_;
    Parameter& reshape_;
    Text& patternFile_;
};
