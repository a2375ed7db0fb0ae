#pragma once

#include "app/CommonOptions.h"
#include "app/KavrinSubcommand.h"

/// Packs the layers of square patterns onto panels of one size.
class PackSubcommand : public KavrinSubcommand {
public:
    static constexpr const char* kName = "pack";
    static constexpr const char* kDescription =
        "Pack square patterns into pattern with layers of panels.";

    PackSubcommand();
    int run() override;

private:
    using Text = VORN::ArgumentProcessor::DirectValue<std::string>;
    using TextList = VORN::ArgumentProcessor::CollectValue;

    VORN::PegboardOption pegboard_;
    Text& paletteFile_;
    TextList& patternFiles_;
    VORN::PatternOutputOption output_;
};
