#include "app/PackSubcommand.h"

#include "app/Artwork.h"
#include "beads/PanelPacker.h"

#include <iostream>

using namespace VORN;

namespace {

/// Adds every layer of the pattern file `name`; false comes after one line on standard error.
bool packFile(const std::string& name, PanelPacker& packer) {
    Pattern pattern;
    if (!loadPattern(name, pattern))
        return false;
    if (pattern.style != PatternStyle::Square) {
        std::cerr << "Pattern type in " << name << " is not \"square\".\n";
        return false;
    }
    for (std::size_t layer = 0; layer < pattern.layerCount(); ++layer)
        packer.add(pattern, layer);
    return true;
}

} // namespace

PackSubcommand::PackSubcommand()
    : KavrinSubcommand{kName, kDescription},
      pegboard_{arguments().addPositional(PegboardOption::kDescription)},
      paletteFile_{
          arguments().addPositional("input palette for background crop").add<Text>("palette")},
      patternFiles_{arguments()
                        .addPositional("pattern files")
                        .add<TextList>("pattern ... patternN", kMaximumPatternFiles)},
      output_{arguments().addNamed({"-o"}, PatternOutputOption::kDescription)} {}

int PackSubcommand::run() {
    if (pegboard_.style() != PatternStyle::Square) {
        std::cerr << "Pattern type must be \"square\".\n";
        return 1;
    }
    Palette palette;
    if (!loadPalette(paletteFile_.get(), palette))
        return 1;
    PanelPacker packer{palette, pegboard_.sizeBeads()};
    for (const std::string& name : patternFiles_.get())
        if (!packFile(name, packer))
            return 1;
    return output_.write(packer.panels()) ? 0 : 1;
}
