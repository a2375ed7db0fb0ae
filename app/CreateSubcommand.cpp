#include "app/CreateSubcommand.h"

#include "app/InputLoading.h"
#include "app/OutputSaving.h"
#include "beads/LayerFilling.h"
#include "core/Exception.h"

using namespace VORN;

int CreateSubcommand::run() {
    Pattern pattern;
    pattern.style = pegboard_.style();
    pattern.AddFilledLayer({pegboard_.sizeBeads(), pegboard_.sizeBeads()}, fillSymbol());
    if (reshape_.given() && !reshape(pattern))
        return 1;
    if (fillPalette_.given()) {
        Palette palette;
        if (!loadPalette(fillPalette_.get(), palette))
            return 1;
        fillWithPalette(palette, pattern.shape(0), pattern.layer(0).content);
    }
    return savePattern(output_, pattern) ? 0 : 1;
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
    if (!loadPattern(reshape_.get(), input))
        return false;
    for (std::size_t k = 0; k < input.layerCount(); ++k) {
        if (k == pattern.layerCount())
            pattern.AddFilledLayer(pattern.layer(0).size, fillSymbol());
        reshapeLayer(input.view(k), pattern.shape(k), pattern.layer(k).content);
    }
    return true;
}
