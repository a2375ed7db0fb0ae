#include "app/PaletteSubcommand.h"

#include "app/Artwork.h"
#include "beads/PaletteGeneration.h"

using namespace VORN;

PaletteSubcommand::PaletteSubcommand()
    : KavrinSubcommand{kName, kDescription},
      pictureFile_{arguments()
                       .addPositional("input picture; importer chosen by extension")
                       .add<Text>("input picture file")},
      paletteFile_{
          arguments().addPositional("output palette file").add<Text>("output palette file")} {}

int PaletteSubcommand::run() {
    Picture picture;
    if (!loadPicture(pictureFile_.get(), picture))
        return 1;
    const Palette palette = generatePalette(picture);
    return savePalette(paletteFile_.get(), palette) ? 0 : 1;
}
