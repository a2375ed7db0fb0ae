#include "app/PaletteSubcommand.h"

#include "app/Artwork.h"
#include "beads/PaletteGeneration.h"

using namespace VORN;

PaletteSubcommand::PaletteSubcommand()
    : KavrinSubcommand{kName, kDescription}, pictureFile_{arguments()
                                                              .addPositional(
                                                                  "importer chosen by extension")
                                                              .add<Text>("input picture file")},
      paletteFile_{
          arguments().addPositional("one symbol a color").add<Text>("output palette file")} {}

int PaletteSubcommand::run() {
    Migration::ImageSignal<unsigned char> picture;
    if (!loadPicture(pictureFile_.get(), picture))
        return 1;
    const Palette palette = generatePalette(PictureView{picture});
    return savePalette(paletteFile_.get(), palette) ? 0 : 1;
}
