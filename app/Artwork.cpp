#include "app/Artwork.h"

#include "core/LoadInput.h"
#include "core/SaveOutput.h"
#include "migration/CodecSelection.h"

namespace VORN {

bool loadPalette(const std::string& name, Palette& palette) {
    return loadInput(name, [&](ReadStream& in) { return palette.Read(in); });
}

bool loadPattern(const std::string& name, Pattern& pattern) {
    return loadInput(name, [&](ReadStream& in) { return pattern.Read(in); });
}

bool loadPicture(const std::string& name, Migration::ImageSignal<unsigned char>& picture) {
    return loadInput(name, [&](RandomReadStream& in) {
        const auto importer = Migration::chooseImporter(name, in);
        if (!importer)
            return false;
        importer->setStream(&in);
        picture.importImage(*importer);
        return true;
    });
}

bool savePattern(const std::string& name, const Pattern& pattern) {
    return saveOutput(name, [&](WriteStream& out) {
        Text::TextWriter writer{out};
        pattern.Write(writer);
        writer.flush();
    });
}

} // namespace VORN
