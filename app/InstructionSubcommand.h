#pragma once

#include "app/CommonOptions.h"
#include "app/KavrinSubcommand.h"

/// Writes a LaTeX document that shows how to build patterns.
class InstructionSubcommand : public KavrinSubcommand {
public:
    static constexpr const char* kName = "instruction";
    static constexpr const char* kDescription =
        "Generate a document with instructions for building a pattern.";

    InstructionSubcommand();
    int run() override;

private:
    using Text = VORN::ArgumentProcessor::DirectValue<std::string>;
    using TextList = VORN::ArgumentProcessor::CollectValue;
    using Parameter = VORN::ArgumentProcessor::Parameter;

    Text& paletteFile_;
    TextList& patternFiles_;
    Text& pitch_;
    Parameter& mirror_;
    Text& background_;
};
