#include "app/OutputSaving.h"

#include "app/OutputFile.h"
#include "core/Console.h"
#include "core/Exception.h"
#include "core/Platform.h"
#include "migration/CodecSelection.h"
#include "migration/ImageSignal.h"

namespace VORN {

namespace {

bool saveOutput(const std::string& name, const std::function<void(WriteStream&)>& write) {
    OutputFile file;
    if (!file.open(name)) {
        complain("Failed to open " + name);
        return false;
    }
    CppOutStream stream{file.stream()};
    BufferedWriteStream pieces{stream};
    write(pieces);
    pieces.flush();
    file.finish();
    return true;
}

/// Writes a palette or pattern in its file format.
template <class Artwork>
void writeText(const Artwork& artwork, WriteStream& out) {
    Text::TextWriter writer{out};
    artwork.Write(writer);
    writer.flush();
}

} // namespace

bool savePalette(const std::string& name, const Palette& palette) {
    return saveOutput(name, [&](WriteStream& out) { writeText(palette, out); });
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

bool savePattern(const TextOption& output, const Pattern& pattern) {
    if (output.given())
        return savePattern(output.get(), pattern);
    print([&](Text::TextWriter& out) { pattern.Write(out); });
    return true;
}

void print(const std::function<void(Text::TextWriter&)>& write) {
    CppOutStream out = standardOutput();
    Text::TextWriter writer{out};
    write(writer);
    writer.flush();
    if (!settleStandardOutput())
        throw StreamException{kNoOrigin, "Failed to flush output stream. "};
}

} // namespace VORN
