#include "app/ShowSubcommand.h"

#include "app/InputLoading.h"
#include "app/OutputSaving.h"
#include "beads/LayerDrawing.h"
#include "core/Console.h"
#include "core/Exception.h"
#include "migration/CodecSelection.h"

using namespace VORN;

namespace {

/// The name of the picture of a layer: `name` itself for the first, then with "_1", "_2", ...
/// before its extension.
std::string layerFile(const std::string& name, std::size_t layer) {
    if (layer == 0)
        return name;
    const std::size_t stem = std::min(name.rfind('.'), name.size());
    return name.substr(0, stem) + '_' + std::to_string(layer) + name.substr(stem);
}

} // namespace

int ShowSubcommand::run() {
    if (!(beadSize_.get() > 0.0F))
        throw UnexpectedValueException{kNoOrigin, VORN::Text::toText(beadSize_.get()),
                                       "a bead size above 0"};
    Palette palette;
    Pattern pattern;
    if (!loadPalette(paletteFile_.get(), palette) || !loadPattern(patternFile_.get(), pattern))
        return 1;
    if (!Migration::chooseExporter(imageFile_.get())) {
        complain(imageFile_.get() + " is not a supported format. ");
        return 1;
    }
    Picture picture;
    for (std::size_t layer = 0; layer < pattern.layerCount(); ++layer) {
        drawLayer(pattern.view(layer), palette, beadSize_.get(), background_.color(), picture);
        if (!savePicture(layerFile(imageFile_.get(), layer), picture))
            return 1;
    }
    return 0;
}
