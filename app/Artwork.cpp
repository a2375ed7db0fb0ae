#include "app/Artwork.h"

#include "core/LoadInput.h"
#include "core/SaveOutput.h"
#include "migration/CodecSelection.h"
#include "migration/ImageSignal.h"

namespace VORN {

namespace {

/// Writes a palette or pattern in its file format.
template <class Artwork>
void writeText(const Artwork& artwork, WriteStream& out) {
    Text::TextWriter writer{out};
    artwork.Write(writer);
    writer.flush();
}

} // namespace

bool loadPalette(const std::string& name, Palette& palette) {
    return loadInput(name, [&](ReadStream& in) { return palette.Read(in); });
}

bool loadPattern(const std::string& name, Pattern& pattern) {
    return loadInput(name, [&](ReadStream& in) { return pattern.Read(in); });
}

bool loadPicture(const std::string& name, Picture& picture) {
    return loadInput(name, [&](RandomReadStream& in) {
        const auto importer = Migration::chooseImporter(name, in);
        if (!importer)
            return false;
        importer->setStream(&in);
        IncrementalBuffer samples;
        Migration::ImageMetadata metadata;
        importer->importImage(samples, metadata);
        const Tuple<3, unsigned> size =
            Migration::ImageSignal<unsigned char>{samples, metadata}.size();
        picture = Picture{std::move(samples), size};
        return true;
    });
}

bool savePattern(const std::string& name, const Pattern& pattern) {
    return saveOutput(name, [&](WriteStream& out) { writeText(pattern, out); });
}

bool savePicture(const std::string& name, const Picture& picture) {
    const auto exporter = Migration::chooseExporter(name);
    return saveOutput(name, [&](WriteStream& out) {
        exporter->setStream(&out);
        Migration::ImageSignal<unsigned char>{picture.signal()}.exportImage(*exporter);
    });
}

void printPattern(const Pattern& pattern) {
    writeToStandardOutput([&](WriteStream& out) { writeText(pattern, out); });
}

bool savePalette(const std::string& name, const Palette& palette) {
    return saveOutput(name, [&](WriteStream& out) { writeText(palette, out); });
}

} // namespace VORN
