#include "app/InstructionSubcommand.h"

#include "app/InputLoading.h"
#include "app/InstructionDocument.h"
#include "app/OutputSaving.h"

using namespace VORN;

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
                                  .view = mirror_.given() ? View::Mirrored : View::FromFront}};
    print([&](Text::TextWriter& out) { document.write(out, patterns); });
    return 0;
}
