#include "app/CreateSubcommand.h"

#include "app/Artwork.h"
#include "beads/LayerFilling.h"
#include "core/Exception.h"

using namespace VORN;

CreateSubcommand::CreateSubcommand()
    : KavrinSubcommand{kName, kDescription},
      pegboard_{arguments().addPositional(PegboardOption::kDescription)},
      output_{arguments().addNamed({"-o"}, PatternOutputOption::kDescription)},
      fill_{arguments()
                .addNamed({"--fill"}, "palette symbol to fill pattern with")
                .add<Text>("symbol", std::string(1, kNoBead))},
      fillPalette_{arguments().addNamed({"--fill-palette"}, "palette fill start of pattern with")},
      paletteFile_{fillPalette_.add<Text>("palette")},
      reshape_{arguments().addNamed({"--reshape"}, "input pattern to reshape")},
      patternFile_{reshape_.add<Text>("pattern")} {}

int CreateSubcommand::run() {
    Pattern pattern;
    pattern.style = pegboard_.style();
    pattern.AddFilledLayer({pegboard_.sizeBeads(), pegboard_.sizeBeads()}, fillSymbol());
    if (reshape_.assigned() && !reshape(pattern))
        return 1;
    if (fillPalette_.assigned()) {
        Palette palette;
        if (!loadPalette(paletteFile_.get(), palette))
            return 1;
        fillWithPalette(palette, pattern.shape(0), pattern.layer(0).content);
    }
    return output_.write(pattern) ? 0 : 1;
}

/// Line ends would take a row of the pattern apart.
char CreateSubcommand::fillSymbol() const {
    const std::string& text = fill_.get();
    if (text.empty() || text.front() == '\r' || text.front() == '\n')
        throw UnexpectedValueException{kNoOrigin, text, "a palette symbol"};
    return text.front();
}

/// Carries every layer of the input over onto a layer of the pegboard's size.
bool CreateSubcommand::reshape(Pattern& pattern) const {
    Pattern input;
    if (!loadPattern(patternFile_.get(), input))
        return false;
    for (std::size_t k = 0; k < input.layerCount(); ++k) {
        if (k == pattern.layerCount())
            pattern.AddFilledLayer(pattern.layer(0).size, fillSymbol());
        reshapeLayer(input.view(k), pattern.shape(k), pattern.layer(k).content);
    }
    return true;
}
