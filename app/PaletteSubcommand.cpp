#include "app/PaletteSubcommand.h"

#include "app/InputLoading.h"
#include "app/OutputSaving.h"
#include "beads/PaletteGeneration.h"

using namespace VORN;

int PaletteSubcommand::run() {
    Picture picture;
    if (!loadPicture(pictureFile_.get(), picture))
        return 1;
    const Palette palette = generatePalette(picture);
    return savePalette(paletteFile_.get(), palette) ? 0 : 1;
}
