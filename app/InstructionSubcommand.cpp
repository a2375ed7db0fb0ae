#include "app/InstructionSubcommand.h"

#include "app/Artwork.h"
#include "app/InstructionDocument.h"
#include "core/SaveOutput.h"

using namespace VORN;

InstructionSubcommand::InstructionSubcommand()
    : KavrinSubcommand{kName, kDescription},
      paletteFile_{arguments()
                       .addPositional("palette file, or the name of a builtin palette")
                       .add<Text>("palette file")},
      patternFiles_{arguments()
                        .addPositional("pattern files")
                        .add<TextList>("pattern ... patternN", kMaximumPatternFiles)},
      pitch_{arguments()
                 .addNamed({"--pitch"}, "bead pitch (size) with unit e.g. 5mm")
                 .add<Text>("", "5mm")},
      mirror_{arguments().addNamed({"--mirror"}, "mirror instruction to match bead fuse side")},
      background_{
          arguments().addNamed({"--background"}, "background color").add<Text>("color", "white")} {}

int InstructionSubcommand::run() {
    Palette palette;
    if (!loadPalette(paletteFile_.get(), palette))
        return 1;
    std::vector<Pattern> patterns(patternFiles_.get().size());
    for (std::size_t i = 0; i < patterns.size(); ++i)
        if (!loadPattern(patternFiles_.get()[i], patterns[i]))
            return 1;

    using View = InstructionDocument::View;
    InstructionDocument document{palette,
                                 {.pitch = pitch_.get(),
                                  .background = background_.get(),
                                  .view = mirror_.assigned() ? View::Mirrored : View::FromFront}};
    writeToStandardOutput([&](WriteStream& out) {
        VORN::Text::TextWriter writer{out};
        document.write(writer, patterns);
        writer.flush();
    });
    return 0;
}
