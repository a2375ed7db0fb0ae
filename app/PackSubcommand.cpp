#include "app/PackSubcommand.h"

#include "app/InputLoading.h"
#include "app/OutputSaving.h"
#include "beads/PanelPacker.h"
#include "core/Console.h"

using namespace VORN;

namespace {

/// Packs every layer of the pattern file `name`. Returns false after one line on standard error.
bool packFile(const std::string& name, PanelPacker& packer) {
    Pattern pattern;
    if (!loadPattern(name, pattern))
        return false;
    if (pattern.style != PatternStyle::Square) {
        complain("Pattern type in " + name + " is not \"square\".");
        return false;
    }
    for (std::size_t layer = 0; layer < pattern.layerCount(); ++layer)
        packer.add(pattern, layer);
    return true;
}

} // namespace

int PackSubcommand::run() {
    if (pegboard_.style() != PatternStyle::Square) {
        complain("Pattern type must be \"square\".");
        return 1;
    }
    Palette palette;
    if (!loadPalette(paletteFile_.get(), palette))
        return 1;
    PanelPacker packer{palette, pegboard_.sizeBeads()};
    for (const std::string& name : patternFiles_.get())
        if (!packFile(name, packer))
            return 1;
    return savePattern(output_, packer.panels()) ? 0 : 1;
}
